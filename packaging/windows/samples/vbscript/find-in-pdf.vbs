' Shows a PDF in Acrobat: at a page, at a bookmark, or where a text is found.
'
'   cscript //nologo find-in-pdf.vbs report.pdf 12
'   cscript //nologo find-in-pdf.vbs report.pdf bookmark "Summary"
'   cscript //nologo find-in-pdf.vbs report.pdf text "net profit"
'
' Needs Acrobat, which stays open. Ends with 1 when it fails.
Option Explicit

Dim pdf, files, source, first

If WScript.Arguments.Count < 2 Then
    WScript.Echo "Usage: cscript //nologo find-in-pdf.vbs PDF PAGE|bookmark TITLE|text WORDS"
    WScript.Quit 2
End If

' Acrobat has a current folder of its own, so it is given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
source = files.GetAbsolutePathName(WScript.Arguments(0))
first = WScript.Arguments(1)

Sub Show
    If WScript.Arguments.Count = 2 Then
        pdf.OpenPDF source, , CLng(first)
    ElseIf first = "bookmark" Then
        pdf.OpenPDF source, WScript.Arguments(2)
    Else
        pdf.FindTextInPDF source, WScript.Arguments(2)
    End If
End Sub

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then Show
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If
WScript.Echo "Acrobat shows " & source
