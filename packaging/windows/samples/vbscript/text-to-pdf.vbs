' Converts a text file to PDF by Word: in a font of one width, with page numbers at the foot.
'
'   cscript //nologo text-to-pdf.vbs readme.txt readme.pdf [font size]
'
' Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, source, target, size

If WScript.Arguments.Count < 2 Then
    WScript.Echo "Usage: cscript //nologo text-to-pdf.vbs TEXT PDF [SIZE]"
    WScript.Quit 2
End If

' Word has a current folder of its own, so it is given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
source = files.GetAbsolutePathName(WScript.Arguments(0))
target = files.GetAbsolutePathName(WScript.Arguments(1))
If WScript.Arguments.Count > 2 Then size = CInt(WScript.Arguments(2)) Else size = 10

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then pdf.CreatePDFfromTextFile target, source, , "Courier New", , size, , , , True
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If

If Not files.FileExists(target) Then
    WScript.Echo "Distiller has made no PDF; its log beside " & target & " says why."
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target
