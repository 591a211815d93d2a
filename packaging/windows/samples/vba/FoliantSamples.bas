Attribute VB_Name = "FoliantSamples"
' Word documents and PostScript files to PDF, from any Office program.
'
' Import this module and PdfJob.cls (File, Import File). Early binding needs a reference to Foliant (Tools,
' References); without one, leave out WordToPdfWithProgress and PdfJob.cls. In the Immediate window:
'
'   PostScriptToPdf "C:\Reports\out.ps", "C:\Reports\out.pdf"
'   WordToPdfWithProgress "C:\Reports\letter.docx", "C:\Reports\letter.pdf"
Option Explicit

' Late bound: runs without a reference.
Public Sub PostScriptToPdf(ByVal PostScript As String, ByVal Target As String)
    Dim Pdf As Object
    On Error GoTo Failed
    Set Pdf = CreateObject("Foliant.BuildPDF")
    Pdf.CreatePDFfromPS strPDFFile:=Target, strPSFile:=PostScript
    ReportOutcome Target
    Exit Sub
Failed:
    ReportError
End Sub

' Early bound: the editor completes names, and progress arrives as events.
Public Sub WordToPdfWithProgress(ByVal Document As String, ByVal Target As String, _
                                 Optional ByVal Pages As String = "")
    Dim Job As PdfJob
    On Error GoTo Failed
    Set Job = New PdfJob
    Job.ConvertWord Document, Target, Pages
    ReportOutcome Target
    Exit Sub
Failed:
    ReportError
End Sub

' Distiller tells of a failed job by an event, not by an error, so the file itself is looked for.
Private Sub ReportOutcome(ByVal Target As String)
    If Dir(Target) <> "" Then
        Debug.Print "Wrote " & Target
    Else
        MsgBox "Distiller has made no PDF; its log beside " & Target & " says why.", vbExclamation
    End If
End Sub

Private Sub ReportError()
    MsgBox "Error " & Err.Number & " from " & Err.Source & ":" & vbCrLf & Err.Description, vbExclamation
End Sub
