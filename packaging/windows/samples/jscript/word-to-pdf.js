// Converts a Word document to PDF, showing Distiller's progress.
//
//   cscript //nologo word-to-pdf.js letter.docx letter.pdf [pages]
//
// Pages as Word writes them, such as 1-3,5; all of them when left out. Ends with 1 when there is no PDF.

function pdf_PercentDone(percent) {
    WScript.Echo(percent + "%");
}

function pdf_LogMessage(message) {
    WScript.Echo(message);
}

function pdf_JobFail(postscript, output) {
    WScript.Echo("The Distiller job for " + output + " has failed.");
}

function convert(document, target, pages) {
    var pdf = new ActiveXObject("Foliant.BuildPDF");
    try {
        WScript.ConnectObject(pdf, "pdf_");
    } catch (unsupported) {
        // Without progress, where the script host hands on no events.
    }
    pdf.CreatePDFfromWord(target, document, "", "", pages);
}

function main(args) {
    if (args.length < 2) {
        WScript.Echo("Usage: cscript //nologo word-to-pdf.js DOCUMENT PDF [PAGES]");
        return 2;
    }
    // Word has a current folder of its own, so it is given whole paths.
    var files = new ActiveXObject("Scripting.FileSystemObject");
    var document = files.GetAbsolutePathName(args(0));
    var target = files.GetAbsolutePathName(args(1));
    try {
        convert(document, target, args.length > 2 ? args(2) : "");
    } catch (error) {
        WScript.Echo("Error " + error.number + ": " + error.message);
        return 1;
    }
    // Distiller tells of a failed job by an event, not by an error.
    if (!files.FileExists(target)) {
        WScript.Echo("Distiller has made no PDF; its log beside " + target + " says why.");
        return 1;
    }
    WScript.Echo("Wrote " + target);
    return 0;
}

WScript.Quit(main(WScript.Arguments));
