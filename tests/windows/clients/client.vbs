' A late-bound client. It makes one call, which the test puts in, and says what came of it.
'
'     cscript //nologo CLIENT.vbs FOLDER
Option Explicit
Dim folder, pdf, printer, result, unset, files, declared(3)

folder = WScript.Arguments(0) & "\"

Function AllFiles()
    AllFiles = Array(folder & "b.ps", folder & "no such file.ps", folder & "a.ps", folder & "c.ps")
End Function

' An error that nobody traps ends a script without a word.
On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
pdf.TempFilePath = folder
printer = ""
files = AllFiles()
declared(0) = files(0)
declared(1) = files(1)
declared(2) = files(2)
declared(3) = files(3)

' THE CALL

If Err.Number <> 0 Then
    WScript.Echo "error " & Err.Number & " of " & Err.Source & ": " & Err.Description
Else
    WScript.Echo "no error"
End If
If Not IsEmpty(result) Then WScript.Echo "result """ & result & """"
If Not IsEmpty(unset) Then printer = unset
WScript.Echo "printer """ & printer & """"
