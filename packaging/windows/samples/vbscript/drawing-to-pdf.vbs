' Converts a drawing to PDF: one of Visio whole, one of AutoCAD by the layouts that are named, each a page.
'
'   cscript //nologo drawing-to-pdf.vbs office.vsdx office.pdf
'   cscript //nologo drawing-to-pdf.vbs house.dwg house.pdf Layout1 [Layout2...]
'
' Needs quorixsend.exe in the system folder. Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, source, target, layouts, i

If WScript.Arguments.Count < 2 Then
    WScript.Echo "Usage: cscript //nologo drawing-to-pdf.vbs DRAWING PDF [LAYOUT...]"
    WScript.Quit 2
End If

' The drawing program has a current folder of its own, so it is given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
source = files.GetAbsolutePathName(WScript.Arguments(0))
target = files.GetAbsolutePathName(WScript.Arguments(1))

Function IsVisio(name)
    IsVisio = LCase(Left(files.GetExtensionName(name), 2)) = "vs"
End Function

ReDim layouts(WScript.Arguments.Count - 3)
For i = 0 To UBound(layouts)
    layouts(i) = WScript.Arguments(i + 2)
Next

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then
    If IsVisio(source) Then
        pdf.CreatePDFfromVisio target, source
    ElseIf UBound(layouts) = 0 Then
        pdf.CreatePDFfromAutoCAD target, source, layouts(0)
    Else
        pdf.CreatePDFfromMultiAutoCAD target, source, layouts
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
