<#
.SYNOPSIS
Converts a Word document to PDF.

.DESCRIPTION
Ends with 1 when there is no PDF. There is no progress: PowerShell hands on events only between commands.

.EXAMPLE
powershell -ExecutionPolicy Bypass -File word-to-pdf.ps1 letter.docx letter.pdf -Pages 1-3
#>
param(
    [Parameter(Mandatory)] [string] $Document,
    [Parameter(Mandatory)] [string] $Target,
    [string] $Pages = ''
)
$ErrorActionPreference = 'Stop'

# Word has a current folder of its own, so it is given whole paths.
$shell = $ExecutionContext.SessionState.Path
$Document = $shell.GetUnresolvedProviderPathFromPSPath($Document)
$Target = $shell.GetUnresolvedProviderPathFromPSPath($Target)

$pdf = $null
try {
    $pdf = New-Object -ComObject Foliant.BuildPDF
    $pdf.CreatePDFfromWord($Target, $Document, '', '', $Pages)
}
catch {
    $failure = $_.Exception
    while ($failure.InnerException) { $failure = $failure.InnerException }
    Write-Host "Error $($failure.HResult) from $($failure.Source): $($failure.Message)"
    exit 1
}
finally {
    if ($pdf) { [void][Runtime.InteropServices.Marshal]::ReleaseComObject($pdf) }
}

if (-not (Test-Path -LiteralPath $Target)) {
    Write-Host "Distiller has made no PDF; its log beside $Target says why."
    exit 1
}
Write-Host "Wrote $Target"
