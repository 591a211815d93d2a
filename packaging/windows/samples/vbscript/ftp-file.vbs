' Sends a file to an FTP server, or gets one. A password is taken from the environment variable FTP_PASSWORD, because
' others can read a command line.
'
'   cscript //nologo ftp-file.vbs put ftp.example.com report.pdf reports/report.pdf [user]
'   cscript //nologo ftp-file.vbs get ftp.example.com report.pdf reports/report.pdf [user]
'
' Needs the Internet Transfer control, which 32-bit script hosts have only. Ends with 1 when it fails.
Option Explicit

Dim pdf, files, control, host, here, there, folder, user, password

If WScript.Arguments.Count < 4 Then
    WScript.Echo "Usage: cscript //nologo ftp-file.vbs put|get SERVER FILE REMOTE-FILE [USER]"
    WScript.Quit 2
End If

Set files = CreateObject("Scripting.FileSystemObject")
host = WScript.Arguments(1)
here = files.GetAbsolutePathName(WScript.Arguments(2))
there = files.GetFileName(WScript.Arguments(3))
folder = files.GetParentFolderName(WScript.Arguments(3))
If WScript.Arguments.Count > 4 Then
    user = WScript.Arguments(4)
    password = CreateObject("WScript.Shell").Environment("Process")("FTP_PASSWORD")
End If

On Error Resume Next
Set control = CreateObject("InetCtls.Inet")
If Err.Number = 0 Then Set pdf = CreateObject("Foliant.BuildPDF")
If Err.Number = 0 Then
    If WScript.Arguments(0) = "put" Then
        pdf.UploadFile control, host, folder, here, there, user, password
    Else
        pdf.DownloadFile control, host, folder, here, there, user, password
    End If
End If
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If

' The control does not tell by itself what the server has refused.
If WScript.Arguments(0) = "get" And Not files.FileExists(here) Then
    WScript.Echo "The server has sent no " & there
    WScript.Quit 1
End If
WScript.Echo "Done: " & here
