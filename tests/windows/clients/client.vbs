' A late-bound client. It makes one call and says what came of it.
'
'     cscript //nologo client.vbs MEMBER FOLDER
Option Explicit
Dim member, folder, pdf, printer, unset, files, declared(3)

member = WScript.Arguments(0)
folder = WScript.Arguments(1) & "\"

' An error that nobody traps ends a script without a word.
On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
pdf.TempFilePath = folder
printer = ""
files = Array(folder & "b.ps", folder & "no such file.ps", folder & "a.ps", folder & "c.ps")
declared(0) = files(0)
declared(1) = files(1)
declared(2) = files(2)
declared(3) = files(3)

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
    Case "CreatePDFfromPS, a variable without a value"
        pdf.CreatePDFfromPS folder & "out.pdf", folder & "in.ps", unset, True, False, "Press", False
        printer = unset
    Case "CreatePDFfromMultiPS, the result of Array"
        pdf.CreatePDFfromMultiPS folder & "out.pdf", Array(files(0), files(1), files(2), files(3)), printer
    Case "CreatePDFfromMultiPS, an array in a variable"
        pdf.CreatePDFfromMultiPS folder & "out.pdf", files, printer
    Case "CreatePDFfromMultiPS, an array with declared bounds"
        pdf.CreatePDFfromMultiPS folder & "out.pdf", declared, printer
End Select

If Err.Number <> 0 Then
    WScript.Echo "error " & Err.Number & " of " & Err.Source & ": " & Err.Description
Else
    WScript.Echo "no error"
End If
WScript.Echo "printer """ & printer & """"
