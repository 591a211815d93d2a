Option Explicit
On Error Resume Next
Dim pdf, printer, folder, show, missing

Sub Report(what)
    WScript.Echo what & ": " & Err.Number & " " & Err.Source & ": " & Err.Description
    Err.Clear
End Sub

Set pdf = CreateObject("Foliant.BuildPDF")
Report "created"
WScript.Echo TypeName(pdf.PrinterName) & " " & pdf.PrinterName
pdf.TempFilePath = "C:\windows"
WScript.Echo pdf.TempFilePath
pdf.TempFilePath = "C:\no\such\folder"
WScript.Echo pdf.TempFilePath

pdf.CreatePDFfromPS "C:\out.pdf", "C:\no.ps"
Report "missing file"
printer = ""
show = True
pdf.CreatePDFfromPS "C:\out.pdf", "C:\no.ps", printer, show
Report "variables"
pdf.CreatePDFfromPS "C:\out.pdf", "C:\no.ps", , , True
Report "left out"
pdf.CreatePDFfromPS "C:\out.pdf"
Report "too few"
pdf.CreatePDFfromPS 1, 2, 3, 4, 5, 6, 7, 8
Report "too many"
pdf.CreatePDFfromPS "C:\out.pdf", Array("a", "b")
Report "array for a text"
pdf.CreatePDFfromPS "C:\out.pdf", "C:\no.ps", "", "perhaps"
Report "no truth value"
pdf.PrintPDF "C:\no.pdf", "", True, 99999999999
Report "too large"
pdf.CreatePDFfromPS Null, "C:\no.ps"
Report "null"
pdf.NoSuchMember
Report "no such member"
