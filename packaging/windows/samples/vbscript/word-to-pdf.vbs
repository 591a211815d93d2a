' Converts a Word document to PDF, showing Distiller's progress.
'
'   cscript //nologo word-to-pdf.vbs letter.docx letter.pdf [pages]
'
' Pages as Word writes them, such as 1-3,5; all of them when left out. Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, document, target, pages

If WScript.Arguments.Count < 2 Then
    WScript.Echo "Usage: cscript //nologo word-to-pdf.vbs DOCUMENT PDF [PAGES]"
    WScript.Quit 2
End If

' Word has a current folder of its own, so it is given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
document = files.GetAbsolutePathName(WScript.Arguments(0))
target = files.GetAbsolutePathName(WScript.Arguments(1))
If WScript.Arguments.Count > 2 Then pages = WScript.Arguments(2) Else pages = ""

On Error Resume Next
Set pdf = WScript.CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then
    WScript.ConnectObject pdf, "Pdf_"
    Err.Clear ' without progress, where the script host hands on no events
    pdf.CreatePDFfromWord target, document, , , pages
End If
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If

' Distiller tells of a failed job by an event, not by an error.
If Not files.FileExists(target) Then
    WScript.Echo "Distiller has made no PDF; its log beside " & target & " says why."
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target

Sub Pdf_PercentDone(percent)
    WScript.Echo percent & "%"
End Sub

Sub Pdf_LogMessage(message)
    WScript.Echo message
End Sub

Sub Pdf_JobFail(postscript, output)
    WScript.Echo "The Distiller job for " & output & " has failed."
End Sub
