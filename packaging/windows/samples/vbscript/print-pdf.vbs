' Prints a PDF, or all PDFs of a folder, without asking.
'
'   cscript //nologo print-pdf.vbs report.pdf ["Office printer" [first [last]]]
'   cscript //nologo print-pdf.vbs C:\Reports ["Office printer"]
'
' Needs Acrobat. Ends with 1 when it fails.
Option Explicit

Dim pdf, files, source, printer, first, last

If WScript.Arguments.Count < 1 Then
    WScript.Echo "Usage: cscript //nologo print-pdf.vbs PDF|FOLDER [PRINTER [FIRST [LAST]]]"
    WScript.Quit 2
End If

' Acrobat has a current folder of its own, so it is given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
source = files.GetAbsolutePathName(WScript.Arguments(0))
printer = "" ' the default one
first = 1
If WScript.Arguments.Count > 1 Then printer = WScript.Arguments(1)
If WScript.Arguments.Count > 2 Then first = CLng(WScript.Arguments(2))

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then
    If files.FolderExists(source) Then
        pdf.PrintPDFinDir source, "*.pdf", printer, True
    Else
        If WScript.Arguments.Count > 3 Then last = CLng(WScript.Arguments(3)) Else last = pdf.GetNumPagesPDF(source)
        If Err.Number = 0 Then pdf.PrintPDF source, printer, True, first, last
    End If
End If
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If
WScript.Echo "Printed " & source
