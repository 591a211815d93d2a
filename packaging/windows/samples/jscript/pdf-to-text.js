// Writes the text of a PDF to a text file, and says how many pages there were.
//
//   cscript //nologo pdf-to-text.js report.pdf report.txt
//
// Needs Acrobat. Ends with 1 when it fails.

function main(args) {
    if (args.length !== 2) {
        WScript.Echo("Usage: cscript //nologo pdf-to-text.js PDF TEXT");
        return 2;
    }
    var files = new ActiveXObject("Scripting.FileSystemObject");
    var source = files.GetAbsolutePathName(args(0));
    var target = files.GetAbsolutePathName(args(1));
    try {
        var pdf = new ActiveXObject("Foliant.BuildPDF");
        var pages = pdf.GetNumPagesPDF(source);
        pdf.CreateTextfileFromPDF(source, target);
    } catch (error) {
        WScript.Echo("Error " + error.number + ": " + error.message);
        return 1;
    }
    WScript.Echo("Wrote " + target + " from " + pages + " page(s)");
    return 0;
}

WScript.Quit(main(WScript.Arguments));
