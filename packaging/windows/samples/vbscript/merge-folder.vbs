' Merges the PDFs of a folder, by their names, into one.
'
'   cscript //nologo merge-folder.vbs year.pdf C:\Reports [month*.pdf]
'
' Needs Acrobat. Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, target, folder, pattern

If WScript.Arguments.Count < 2 Then
    WScript.Echo "Usage: cscript //nologo merge-folder.vbs PDF FOLDER [PATTERN]"
    WScript.Quit 2
End If

Set files = CreateObject("Scripting.FileSystemObject")
target = files.GetAbsolutePathName(WScript.Arguments(0))
folder = files.GetAbsolutePathName(WScript.Arguments(1))
pattern = "*.pdf"
If WScript.Arguments.Count > 2 Then pattern = WScript.Arguments(2)

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then pdf.CreatePDFfromMultiPDFinDir target, folder, pattern
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If

If Not files.FileExists(target) Then
    WScript.Echo "There is no " & pattern & " in " & folder & ""
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target
