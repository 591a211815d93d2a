' Prints a document of Word, Excel or PowerPoint, or a text, to the PDF printer: quicker than by way of Distiller.
'
'   cscript //nologo print-to-pdf.vbs letter.docx letter.pdf
'   cscript //nologo print-to-pdf.vbs sales.xlsx sales.pdf A1:F40 January [February...]
'   cscript //nologo print-to-pdf.vbs readme.txt readme.pdf [Notepad]
'
' Needs quorixsend.exe in the system folder. Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, source, target

If WScript.Arguments.Count < 2 Then
    WScript.Echo "Usage: cscript //nologo print-to-pdf.vbs DOCUMENT PDF [RANGE SHEET...|Notepad]"
    WScript.Quit 2
End If

' The programs have current folders of their own, so they are given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
source = files.GetAbsolutePathName(WScript.Arguments(0))
target = files.GetAbsolutePathName(WScript.Arguments(1))

Sub PrintWorkbook
    Dim sheets, ranges, landscape, i
    If WScript.Arguments.Count < 4 Then
        Err.Raise vbObjectError, "print-to-pdf.vbs", "Name a range and a worksheet."
    ElseIf WScript.Arguments.Count = 4 Then
        pdf.CreatePDFfromExcel2 target, source, WScript.Arguments(3), WScript.Arguments(2)
    Else
        ReDim sheets(WScript.Arguments.Count - 4)
        ReDim ranges(UBound(sheets))
        ReDim landscape(UBound(sheets))
        For i = 0 To UBound(sheets)
            sheets(i) = WScript.Arguments(i + 3)
            ranges(i) = WScript.Arguments(2)
            landscape(i) = True
        Next
        pdf.CreatePDFfromMultiExcel2 target, source, sheets, ranges, , , , landscape
    End If
End Sub

Sub PrintDocument
    Select Case Left(LCase(files.GetExtensionName(source)), 3)
        Case "xls" PrintWorkbook
        Case "ppt" pdf.CreatePDFfromPowerPoint2 target, source
        Case "txt", "log"
            If WScript.Arguments.Count > 2 Then
                pdf.CreatePDFfromTextFile3 target, source
            Else
                pdf.CreatePDFfromTextFile2 target, source
            End If
        Case Else pdf.CreatePDFfromWord2 target, source
    End Select
End Sub

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then PrintDocument
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If

If Not files.FileExists(target) Then
    WScript.Echo "The printer has made no " & target & ""
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target
