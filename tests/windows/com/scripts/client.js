var pdf = new ActiveXObject("Foliant.BuildPDF");

function attempt(what, action) {
    try {
        action();
        WScript.Echo(what + ": no error");
    } catch (error) {
        WScript.Echo(what + ": " + (error.number & 0xFFFF) + " " + error.message);
    }
}

WScript.Echo(typeof pdf.PrinterName() + " " + pdf.PrinterName());
pdf.TempFilePath = "C:\\windows";
WScript.Echo(pdf.TempFilePath);
attempt("missing file", function () { pdf.CreatePDFfromPS("C:\\out.pdf", "C:\\no.ps"); });
attempt("too few", function () { pdf.CreatePDFfromPS("C:\\out.pdf"); });
attempt("array for a text", function () { pdf.CreatePDFfromPS("C:\\out.pdf", ["a", "b"]); });
attempt("no number", function () { pdf.PrintPDF("C:\\no.pdf", "", true, "page"); });
