' Converts a presentation, or some of its slides, to PDF.
'
'   cscript //nologo powerpoint-to-pdf.vbs deck.pptx deck.pdf [first [last]]
'
' Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, source, target, first, last

If WScript.Arguments.Count < 2 Then
    WScript.Echo "Usage: cscript //nologo powerpoint-to-pdf.vbs PRESENTATION PDF [FIRST [LAST]]"
    WScript.Quit 2
End If

' PowerPoint has a current folder of its own, so it is given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
source = files.GetAbsolutePathName(WScript.Arguments(0))
target = files.GetAbsolutePathName(WScript.Arguments(1))
first = -1 ' the first of the presentation
last = -1
If WScript.Arguments.Count > 2 Then first = CLng(WScript.Arguments(2))
If WScript.Arguments.Count > 3 Then last = CLng(WScript.Arguments(3))

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then pdf.CreatePDFfromPowerPoint target, source, first, last, True
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If

If Not files.FileExists(target) Then
    WScript.Echo "Distiller has made no PDF; its log beside " & target & " says why."
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target
