' Turns images into one PDF, a page for each, in the order given. A single one gets a title.
'
'   cscript //nologo images-to-pdf.vbs album.pdf harbour.jpg [dusk.jpg...]
'
' Needs Acrobat. Ends with 1 when there is no PDF.
Option Explicit

Dim pdf, files, target, images, i

If WScript.Arguments.Count < 2 Then
    WScript.Echo "Usage: cscript //nologo images-to-pdf.vbs PDF IMAGE..."
    WScript.Quit 2
End If

' Acrobat has a current folder of its own, so it is given whole paths.
Set files = CreateObject("Scripting.FileSystemObject")
target = files.GetAbsolutePathName(WScript.Arguments(0))
ReDim images(WScript.Arguments.Count - 2)
For i = 0 To UBound(images)
    images(i) = files.GetAbsolutePathName(WScript.Arguments(i + 1))
Next

On Error Resume Next
Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then
    If UBound(images) = 0 Then
        pdf.CreatePDFfromImageFile target, images(0), files.GetBaseName(images(0))
    Else
        pdf.CreatePDFfromMultiImage target, images
    End If
End If
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If

If Not files.FileExists(target) Then
    WScript.Echo "Acrobat has not saved " & target & ", perhaps because it cannot read the images."
    WScript.Quit 1
End If
WScript.Echo "Wrote " & target
