' Captures a web page as a PDF.
'
'   cscript //nologo web-page-to-pdf.vbs http://www.example.com page.pdf
'
' Needs Acrobat 6 or later. Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, target

If WScript.Arguments.Count <> 2 Then
    WScript.Echo "Usage: cscript //nologo web-page-to-pdf.vbs ADDRESS PDF"
    WScript.Quit 2
End If

Set files = CreateObject("Scripting.FileSystemObject")
target = files.GetAbsolutePathName(WScript.Arguments(1))

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then pdf.CreatePDFfromWebPage WScript.Arguments(0), target
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If

If Not files.FileExists(target) Then
    WScript.Echo "Acrobat has not saved " & target
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target
