@echo off
rem Registers Foliant for everybody on this computer. Run it in a Command Prompt that was started as administrator.
rem
rem   register-machine.cmd        registers the library of each word size that this Windows runs, and puts the window
rem                               sender into the system folder, from where printing members start it
rem   register-machine.cmd /u     takes that away again, as unregister-machine.cmd does
rem
rem Ends with 0 when all of it went well, and with 1 otherwise.
setlocal EnableExtensions DisableDelayedExpansion
set "here=%~dp0"
set "option="
set "done=registered"
if "%~1"=="" goto chosen
set "option=/u"
set "done=unregistered"
if /i "%~1"=="/u" goto chosen
echo Unknown argument %1. The only one there is: /u
exit /b 1

:chosen
rem To a 32-bit Command Prompt, System32 is the folder of the 32-bit programs.
set "system=%SystemRoot%\System32"
if defined PROCESSOR_ARCHITEW6432 set "system=%SystemRoot%\Sysnative"
set "native=x64"
if /i "%PROCESSOR_ARCHITECTURE%"=="x86" if not defined PROCESSOR_ARCHITEW6432 set "native=x86"

set "failed="
call :word_size %native%
set "system=%SystemRoot%\SysWOW64"
if "%native%"=="x64" if exist "%system%\regsvr32.exe" call :word_size x86
if defined failed exit /b 1
exit /b 0

:word_size
set "library=%here%%1\Foliant.dll"
if not exist "%library%" goto missing
"%system%\regsvr32.exe" /s %option% "%library%"
set "code=%errorlevel%"
if not "%code%"=="0" goto refused
echo Foliant %1 is %done% for everybody on this computer.
set "own=%here%%1\quorixsend.exe"
set "installed=%system%\quorixsend.exe"
if defined option goto remove_sender
rem One that is there already may belong to another installation.
if exist "%installed%" exit /b 0
copy "%own%" "%installed%" >nul
if exist "%installed%" exit /b 0
set "failed=yes"
echo "%own%" could not be copied to "%system%", where members that print start it.
exit /b 1

:remove_sender
if not exist "%installed%" exit /b 0
for %%f in ("%own%") do set "own_size=%%~zf"
for %%f in ("%installed%") do set "installed_size=%%~zf"
rem Another size: another installation's.
if "%own_size%"=="%installed_size%" del "%installed%"
exit /b 0

:missing
set "failed=yes"
echo "%library%" is not there.
echo Extract the whole zip, not this file alone, and start it from there.
exit /b 1

:refused
set "failed=yes"
echo Foliant %1 could not be %done%: regsvr32 ended with %code%.
echo Start the Command Prompt as administrator, or use the scripts for one user.
exit /b 1
