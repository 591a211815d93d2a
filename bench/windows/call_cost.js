// Times late-bound calls of the component against those of the cheapest object that Windows scripting has, in turn.
//
//   cscript //nologo call_cost.js [ROUNDS] [CALLS]
//
// Prints a row for each call of ours: the median of the ratios of neighbouring rounds, and microseconds a call.

var rounds = WScript.Arguments.length > 0 ? Number(WScript.Arguments(0)) : 15;
var calls = WScript.Arguments.length > 1 ? Number(WScript.Arguments(1)) : 100000;

var pdf = new ActiveXObject("Foliant.BuildPDF");
var dictionary = new ActiveXObject("Scripting.Dictionary");

// A function for each, so that every loop has the same shape around its call.
function dictionaryCount() { for (var i = 0; i < calls; ++i) dictionary.Count; }
function dictionaryMode() { for (var i = 0; i < calls; ++i) dictionary.CompareMode; }
function printerName() { for (var i = 0; i < calls; ++i) pdf.PrinterName(); }
function acrobatVersion() { for (var i = 0; i < calls; ++i) pdf.AcrobatVersion(); }
function tempFilePath() { for (var i = 0; i < calls; ++i) pdf.TempFilePath; }

function milliseconds(action) {
    var start = new Date().getTime();
    action();
    return new Date().getTime() - start;
}

function median(numbers) {
    numbers.sort(function (a, b) { return a - b; });
    var middle = Math.floor(numbers.length / 2);
    return numbers.length % 2 ? numbers[middle] : (numbers[middle - 1] + numbers[middle]) / 2;
}

function fixed(number) {
    return (Math.round(number * 100) / 100).toString();
}

function compare(name, ours, otherName, other) {
    var ratios = [], ourTimes = [], otherTimes = [];
    ours();
    other();
    for (var round = 0; round < rounds; ++round) {
        var our = milliseconds(ours), their = milliseconds(other);
        ratios.push(our / their);
        ourTimes.push(our * 1000 / calls);
        otherTimes.push(their * 1000 / calls);
    }
    WScript.Echo("| " + name + " | " + fixed(median(ourTimes)) + " | " + otherName + " " +
                 fixed(median(otherTimes)) + " | " + fixed(median(ratios)) + " |");
}

WScript.Echo("| call | us | other object, us | ratio |");
WScript.Echo("|---|---|---|---|");
compare("PrinterName", printerName, "Dictionary.Count", dictionaryCount);
compare("AcrobatVersion", acrobatVersion, "Dictionary.Count", dictionaryCount);
compare("TempFilePath", tempFilePath, "Dictionary.Count", dictionaryCount);
compare("TempFilePath", tempFilePath, "Dictionary.CompareMode", dictionaryMode);
