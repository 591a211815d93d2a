' Converts PostScript files to one PDF, in the order given.
'
'   cscript //nologo postscript-to-pdf.vbs book.pdf cover.ps chapter1.ps chapter2.ps
'
' Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, target, sources, i

If WScript.Arguments.Count < 2 Then
    WScript.Echo "Usage: cscript //nologo postscript-to-pdf.vbs PDF POSTSCRIPT..."
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
If Err.Number = 0 Then
    If UBound(sources) = 0 Then
        pdf.CreatePDFfromPS target, sources(0)
    Else
        pdf.CreatePDFfromMultiPS target, sources
    End If
End If
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If

If Not files.FileExists(target) Then
    WScript.Echo "Distiller has made no PDF; its log beside " & target & " says why."
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target
