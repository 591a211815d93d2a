' Writes the text of a PDF to a text file, and says how many pages there were.
'
'   cscript //nologo pdf-to-text.vbs report.pdf report.txt
'
' Needs Acrobat. Ends with 1 when it fails.
Option Explicit

Dim pdf, files, source, target, pages

If WScript.Arguments.Count <> 2 Then
    WScript.Echo "Usage: cscript //nologo pdf-to-text.vbs PDF TEXT"
    WScript.Quit 2
End If

Set files = CreateObject("Scripting.FileSystemObject")
source = files.GetAbsolutePathName(WScript.Arguments(0))
target = files.GetAbsolutePathName(WScript.Arguments(1))

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then pages = pdf.GetNumPagesPDF(source)
If Err.Number = 0 Then pdf.CreateTextfileFromPDF source, target
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target & " from " & pages & " page(s)"
