' Prints reports to one PDF: some of an Access database, or one of Crystal Reports.
'
'   cscript //nologo report-to-pdf.vbs sales.accdb sales.pdf Monthly [Yearly...]
'   cscript //nologo report-to-pdf.vbs invoice.rpt invoice.pdf
'
' Needs quorixsend.exe in the system folder. Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, source, target, reports, i

If WScript.Arguments.Count < 2 Then
    WScript.Echo "Usage: cscript //nologo report-to-pdf.vbs DATABASE|REPORT PDF [REPORT...]"
    WScript.Quit 2
End If

' The report program has a current folder of its own, so it is given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
source = files.GetAbsolutePathName(WScript.Arguments(0))
target = files.GetAbsolutePathName(WScript.Arguments(1))

ReDim reports(WScript.Arguments.Count - 3)
For i = 0 To UBound(reports)
    reports(i) = WScript.Arguments(i + 2)
Next

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then
    If LCase(files.GetExtensionName(source)) = "rpt" Then
        pdf.CreatePDFfromCrystalReport target, source
    ElseIf UBound(reports) = 0 Then
        pdf.CreatePDFfromAccessReport target, source, reports(0)
    Else
        pdf.CreatePDFfromMultiAccessReport target, source, reports
    End If
End If
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If

If Not files.FileExists(target) Then
    WScript.Echo "The printer has made no " & target
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target
