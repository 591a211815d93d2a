' Converts any document that Acrobat's PDFMaker knows.
'
'   cscript //nologo any-to-pdf.vbs minutes.doc minutes.pdf
'
' Needs Acrobat with PDFMaker. Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, source, target

If WScript.Arguments.Count <> 2 Then
    WScript.Echo "Usage: cscript //nologo any-to-pdf.vbs DOCUMENT PDF"
    WScript.Quit 2
End If

' Acrobat has a current folder of its own, so it is given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
source = files.GetAbsolutePathName(WScript.Arguments(0))
target = files.GetAbsolutePathName(WScript.Arguments(1))

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then pdf.CreatePDF source, target
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If

If Not files.FileExists(target) Then
    WScript.Echo "Acrobat has not saved " & target
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target
