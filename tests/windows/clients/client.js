// A late-bound client. It makes one call, which the test puts in, and says what came of it.
//
//     cscript //nologo CLIENT.js FOLDER

var folder = WScript.Arguments(0) + "\\";
var files = [folder + "b.ps", folder + "no such file.ps", folder + "a.ps", folder + "c.ps"];
// A script of this language has no variables that a call could fill in.
var printer = "";
var result;

try {
    var pdf = new ActiveXObject("Foliant.BuildPDF");
    pdf.TempFilePath = folder;
    // THE CALL
    WScript.Echo("no error");
    if (typeof result != "undefined") WScript.Echo("result \"" + result + "\"");
} catch (error) {
    // Run-time error n travels as 800A0000 + n.
    var facility = (error.number >> 16) & 0xFFFF;
    WScript.Echo("error " + (facility == 0x800A ? error.number & 0xFFFF : error.number) + ": " + error.message);
}
