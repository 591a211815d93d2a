' Says what Foliant has found on this computer; with a printer's name, makes that printer the default one.
'
'   cscript //nologo settings.vbs ["Office printer"]
'
' Ends with 1 when it fails.
Option Explicit

Dim pdf

If WScript.Arguments.Count > 1 Then
    WScript.Echo "Usage: cscript //nologo settings.vbs [PRINTER]"
    WScript.Quit 2
End If

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 And WScript.Arguments.Count = 1 Then pdf.SetDefPrinter WScript.Arguments(0)
If Err.Number = 0 Then
    WScript.Echo "PDF printer:     " & pdf.PrinterName
    WScript.Echo "Acrobat:         " & pdf.AcrobatVersion
    WScript.Echo "Temporary files: " & pdf.TempFilePath
End If
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If
