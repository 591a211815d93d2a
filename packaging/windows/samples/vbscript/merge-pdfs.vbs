' Merges PDFs, with their bookmarks, into one, in the order given.
'
'   cscript //nologo merge-pdfs.vbs book.pdf cover.pdf chapter1.pdf chapter2.pdf
'
' Needs Acrobat. Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, target, sources, i

If WScript.Arguments.Count < 2 Then
    WScript.Echo "Usage: cscript //nologo merge-pdfs.vbs PDF SOURCE..."
    WScript.Quit 2
End If

Set files = CreateObject("Scripting.FileSystemObject")
target = files.GetAbsolutePathName(WScript.Arguments(0))
ReDim sources(WScript.Arguments.Count - 2)
For i = 1 To WScript.Arguments.Count - 1
    sources(i - 1) = files.GetAbsolutePathName(WScript.Arguments(i))
    ' The call itself passes over files that do not exist.
    If Not files.FileExists(sources(i - 1)) Then
        WScript.Echo "There is no file " & sources(i - 1)
        WScript.Quit 1
    End If
Next

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then pdf.CreatePDFfromMultiPDF target, sources
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If

If Not files.FileExists(target) Then
    WScript.Echo "Acrobat has not saved " & target
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target
