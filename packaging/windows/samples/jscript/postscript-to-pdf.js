// Converts PostScript files to one PDF, in the order given.
//
//   cscript //nologo postscript-to-pdf.js book.pdf cover.ps chapter1.ps chapter2.ps
//
// Ends with 1 when there is no PDF.

function convert(target, sources) {
    var pdf = new ActiveXObject("Foliant.BuildPDF");
    if (sources.length === 1) {
        pdf.CreatePDFfromPS(target, sources[0]);
    } else {
        pdf.CreatePDFfromMultiPS(target, sources);
    }
}

function main(args) {
    if (args.length < 2) {
        WScript.Echo("Usage: cscript //nologo postscript-to-pdf.js PDF POSTSCRIPT...");
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
        convert(target, sources);
    } catch (error) {
        WScript.Echo("Error " + error.number + ": " + error.message);
        return 1;
    }
    if (!files.FileExists(target)) {
        WScript.Echo("Distiller has made no PDF; its log beside " + target + " says why.");
        return 1;
    }
    WScript.Echo("Wrote " + target);
    return 0;
}

WScript.Quit(main(WScript.Arguments));
