' Finishes a PDF in place: a bookmark for each heading, links for the web addresses in it, and a password to open it,
' which the environment variable PDF_PASSWORD holds. Without one it stays open to everybody.
'
'   cscript //nologo mark-pdf.vbs report.pdf [Introduction [Summary...]]
'
' Needs Acrobat. Ends with 1 when it fails.
Option Explicit

Dim pdf, files, source, titles, password, i

If WScript.Arguments.Count < 1 Then
    WScript.Echo "Usage: cscript //nologo mark-pdf.vbs PDF [HEADING...]"
    WScript.Quit 2
End If

' Acrobat has a current folder of its own, so it is given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
source = files.GetAbsolutePathName(WScript.Arguments(0))
password = CreateObject("WScript.Shell").Environment("PROCESS")("PDF_PASSWORD")
ReDim titles(WScript.Arguments.Count - 2)
For i = 0 To UBound(titles)
    titles(i) = WScript.Arguments(i + 1)
Next

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then
    If UBound(titles) = 0 Then pdf.CreateBookmarkInPDF source, titles(0)
    If UBound(titles) > 0 Then pdf.CreateBookmarksInPDF source, titles
End If
If Err.Number = 0 Then pdf.CreateLinksInPDF source
If Err.Number = 0 And password <> "" Then pdf.SetOpenPassword source, password
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If
WScript.Echo "Finished " & source
