' A late-bound client. It makes one call and says what came of it.
'
'     cscript //nologo client.vbs MEMBER FOLDER
Option Explicit
Dim member, folder, pdf, printer

member = WScript.Arguments(0)
folder = WScript.Arguments(1) & "\"

Set pdf = CreateObject("Foliant.BuildPDF")
pdf.TempFilePath = folder
printer = ""

On Error Resume Next
Select Case member
    Case "CreatePDFfromPS"
        pdf.CreatePDFfromPS folder & "out.pdf", folder & "in.ps", printer, True, False, "Press", False
    Case "CreatePDFfromWord"
        pdf.CreatePDFfromWord folder & "out.pdf", folder & "in.doc", "secret", "", "1-2", True, True, False, 2, _
            True, printer, True, False, "Press", False
    Case "CreatePSfromWord"
        pdf.CreatePSfromWord folder & "out.ps", folder & "in.doc", "", "", "", False, False, True, 0, False, _
            printer
    Case "CreatePDFfromWord2"
        pdf.CreatePDFfromWord2 folder & "out.pdf", folder & "in.doc", , , , , , , , , printer
End Select

If Err.Number <> 0 Then
    WScript.Echo "error " & Err.Number & " of " & Err.Source & ": " & Err.Description
Else
    WScript.Echo "no error"
End If
WScript.Echo "printer """ & printer & """"
