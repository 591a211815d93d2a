// Merges PDFs, with their bookmarks, into one, in the order given.
//
//   cscript //nologo merge-pdfs.js book.pdf cover.pdf chapter1.pdf chapter2.pdf
//
// Needs Acrobat. Ends with 1 when there is no PDF.

function main(args) {
    if (args.length < 2) {
        WScript.Echo("Usage: cscript //nologo merge-pdfs.js PDF SOURCE...");
        return 2;
    }
    var files = new ActiveXObject("Scripting.FileSystemObject");
    var target = files.GetAbsolutePathName(args(0));
    var sources = [];
    for (var i = 1; i < args.length; i++) {
        var source = files.GetAbsolutePathName(args(i));
        // The call itself passes over files that do not exist.
        if (!files.FileExists(source)) {
            WScript.Echo("There is no file " + source);
            return 1;
        }
        sources.push(source);
    }
    try {
        new ActiveXObject("Foliant.BuildPDF").CreatePDFfromMultiPDF(target, sources);
    } catch (error) {
        WScript.Echo("Error " + error.number + ": " + error.message);
        return 1;
    }
    if (!files.FileExists(target)) {
        WScript.Echo("Acrobat has not saved " + target);
        return 1;
    }
    WScript.Echo("Wrote " + target);
    return 0;
}

WScript.Quit(main(WScript.Arguments));
