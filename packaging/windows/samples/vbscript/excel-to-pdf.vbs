' Converts the same range of one or more worksheets to one PDF, in landscape.
'
'   cscript //nologo excel-to-pdf.vbs sales.xlsx sales.pdf A1:F40 January [February...]
'
' Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, source, target, sheets, ranges, landscape, i

If WScript.Arguments.Count < 4 Then
    WScript.Echo "Usage: cscript //nologo excel-to-pdf.vbs WORKBOOK PDF RANGE SHEET..."
    WScript.Quit 2
End If

' Excel has a current folder of its own, so it is given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
source = files.GetAbsolutePathName(WScript.Arguments(0))
target = files.GetAbsolutePathName(WScript.Arguments(1))
ReDim sheets(WScript.Arguments.Count - 4)
ReDim ranges(UBound(sheets))
ReDim landscape(UBound(sheets))
For i = 0 To UBound(sheets)
    sheets(i) = WScript.Arguments(i + 3)
    ranges(i) = WScript.Arguments(2)
    landscape(i) = True
Next

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then
    If UBound(sheets) = 0 Then
        pdf.CreatePDFfromExcel target, source, sheets(0), ranges(0), , , , True
    Else
        pdf.CreatePDFfromMultiExcel target, source, sheets, ranges, , , , landscape
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
