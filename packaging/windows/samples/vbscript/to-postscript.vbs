' Prints a document of Word, Excel or PowerPoint, or a text, to a PostScript file, for Distiller or a printer.
'
'   cscript //nologo to-postscript.vbs letter.docx letter.ps
'   cscript //nologo to-postscript.vbs sales.xlsx sales.ps A1:F40 January
'
' Ends with 1 when there is no file.
Option Explicit

Dim pdf, files, source, target, range, sheet

If WScript.Arguments.Count < 2 Then
    WScript.Echo "Usage: cscript //nologo to-postscript.vbs DOCUMENT POSTSCRIPT [RANGE SHEET]"
    WScript.Quit 2
End If

' The programs have current folders of their own, so they are given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
source = files.GetAbsolutePathName(WScript.Arguments(0))
target = files.GetAbsolutePathName(WScript.Arguments(1))
range = "A1:F40"
sheet = 1 ' by its number
If WScript.Arguments.Count > 2 Then range = WScript.Arguments(2)
If WScript.Arguments.Count > 3 Then sheet = WScript.Arguments(3)

Sub PrintDocument
    Select Case Left(LCase(files.GetExtensionName(source)), 3)
        Case "xls" pdf.CreatePSfromExcel target, source, sheet, range
        Case "ppt" pdf.CreatePSfromPowerPoint target, source
        Case "txt", "log" pdf.CreatePSfromTextFile target, source
        Case Else pdf.CreatePSfromWord target, source
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
    WScript.Echo "Nothing was printed to " & target & ""
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target
