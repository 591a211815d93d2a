// A late-bound client. It makes one call and says what came of it.
//
//     cscript //nologo client.js MEMBER FOLDER

var member = WScript.Arguments(0);
var folder = WScript.Arguments(1) + "\\";

var files = [folder + "b.ps", folder + "no such file.ps", folder + "a.ps", folder + "c.ps"];

// A script of this language has no variables that a call could fill in, and cannot leave out an argument that
// others follow.
try {
    var pdf = new ActiveXObject("Foliant.BuildPDF");
    pdf.TempFilePath = folder;
    if (member == "CreatePDFfromPS") {
        pdf.CreatePDFfromPS(folder + "out.pdf", folder + "in.ps", "", true, false, "Press", false);
    } else if (member == "CreatePDFfromWord") {
        pdf.CreatePDFfromWord(folder + "out.pdf", folder + "in.doc", "secret", "", "1-2", true, true, false, 2, true, "",
                              true, false, "Press", false);
    } else if (member == "CreatePSfromWord") {
        pdf.CreatePSfromWord(folder + "out.ps", folder + "in.doc", "", "", "", false, false, true, 0, false, "");
    } else if (member == "CreatePDFfromWord2") {
        pdf.CreatePDFfromWord2(folder + "out.pdf", folder + "in.doc");
    } else if (member == "CreatePDFfromMultiPS, an array") {
        pdf.CreatePDFfromMultiPS(folder + "out.pdf", files, "");
    }
    WScript.Echo("no error");
} catch (error) {
    // Run-time error n travels as 800A0000 + n.
    var facility = (error.number >> 16) & 0xFFFF;
    WScript.Echo("error " + (facility == 0x800A ? error.number & 0xFFFF : error.number) + ": " + error.message);
}
