@echo off
rem Registers Foliant for the user who runs it. Needs no administrator.
rem
rem   register-user.cmd        registers the library of each word size that this Windows runs
rem   register-user.cmd /u     takes that away again, as unregister-user.cmd does
rem
rem Writes below HKEY_CURRENT_USER\Software\Classes what regsvr32 writes for the computer. Ends with 0 when all of it
rem went well; otherwise nothing is registered for the user, and it ends with 1.
setlocal EnableExtensions DisableDelayedExpansion
set "here=%~dp0"
set "program=Foliant.BuildPDF"
set "class={3CDA1E1E-199C-41A5-A97C-FA83395CF432}"
set "library={CF137980-E15E-41F9-87B0-CD3A4A19C5E2}"
set "members={7D0597EB-9FF3-4D00-8957-BAEA326BC0BF}"
set "events={8CF420DE-C4A7-4EF9-A23E-10CE212E5D82}"
rem The system's own proxies for interfaces that a type library describes.
set "dual_proxy={00020424-0000-0000-C000-000000000046}"
set "dispatch_proxy={00020420-0000-0000-C000-000000000046}"

rem To a 32-bit Command Prompt, System32 is the folder of the 32-bit programs, which see other classes.
set "reg=%SystemRoot%\System32\reg.exe"
if defined PROCESSOR_ARCHITEW6432 set "reg=%SystemRoot%\Sysnative\reg.exe"
set "classes=HKCU\Software\Classes"
set "native=x64"
if /i "%PROCESSOR_ARCHITECTURE%"=="x86" if not defined PROCESSOR_ARCHITEW6432 set "native=x86"

if /i "%~1"=="/u" goto remove
if "%~1"=="" goto register
echo Unknown argument %1. The only one there is: /u
exit /b 1

:register
set "failed="
set "view=%classes%"
call :word_size %native%
call :interfaces
if "%native%"=="x86" goto registered
rem Programs of both word sizes may hand each other the object, so they need the interfaces in any case.
set "view=%classes%\Wow6432Node"
if exist "%SystemRoot%\SysWOW64\regsvr32.exe" call :word_size x86
call :interfaces
:registered
if defined failed goto not_registered
echo Foliant is registered for this user.
exit /b 0

:not_registered
call :remove_all
exit /b 1

:remove
call :remove_all
if defined left goto not_removed
echo Foliant is not registered for this user any more.
exit /b 0

:not_removed
echo These registry keys could not be removed:%left%
exit /b 1

rem Classes and interfaces are apart for each word size; type libraries and program identifiers are not.
:word_size
if defined failed exit /b 1
set "folder=%here%%1"
set "file=%folder%\Foliant.dll"
if not exist "%file%" goto missing
set "platform=win64"
if "%1"=="x86" set "platform=win32"

set "key=%view%\CLSID\%class%"
call :write "" "" "%program%"
set "path_value=%file%"
call :write_path "\InprocServer32"
call :write "\InprocServer32" ThreadingModel Apartment
call :write "\ProgID" "" "%program%"
call :write "\Programmable" "" ""
call :write "\TypeLib" "" "%library%"
call :write "\Version" "" 1.1

set "key=%classes%\TypeLib\%library%\1.1"
call :write "" "" "Foliant: one-call PDF automation"
set "path_value=%file%"
call :write_path "\409\%platform%"
call :write "\FLAGS" "" 0
set "path_value=%folder%"
call :write_path "\HELPDIR"

set "key=%classes%\%program%"
call :write "" "" "%program%"
call :write "\Clsid" "" "%class%"
exit /b 0

:interfaces
set "key=%view%\Interface\%members%"
call :write "" "" _BuildPDF
call :write "\ProxyStubClsid" "" "%dual_proxy%"
call :write "\ProxyStubClsid32" "" "%dual_proxy%"
call :write "\TypeLib" "" "%library%"
call :write "\TypeLib" Version 1.1

set "key=%view%\Interface\%events%"
call :write "" "" __BuildPDF
call :write "\ProxyStubClsid" "" "%dispatch_proxy%"
call :write "\ProxyStubClsid32" "" "%dispatch_proxy%"
call :write "\TypeLib" "" "%library%"
call :write "\TypeLib" Version 1.1
exit /b 0

:missing
set "failed=yes"
echo Foliant could not be registered: "%file%" is not there.
echo Extract the whole zip, not this file alone, and start it from there.
exit /b 1

rem :write SUBKEY NAME VALUE, below %key%. The value of a key itself has no name.
:write
set "value=%~3"
set "name=/ve"
if not "%~2"=="" set "name=/v %~2"
goto add

rem :write_path SUBKEY, whose own value becomes %path_value%. As an argument, a path could lose signs that mean
rem something to the Command Prompt.
:write_path
set "value=%path_value%"
set "name=/ve"

:add
if defined failed exit /b 1
"%reg%" add "%key%%~1" %name% /d "%value%" /f >nul
if "%errorlevel%"=="0" exit /b 0
set "failed=yes"
echo Foliant could not be registered: the registry key %key%%~1 cannot be written.
exit /b 1

:remove_all
set "left="
call :remove_key "%classes%\%program%"
call :remove_key "%classes%\TypeLib\%library%"
call :remove_classes "%classes%"
if "%native%"=="x64" call :remove_classes "%classes%\Wow6432Node"
exit /b 0

:remove_classes
call :remove_key "%~1\CLSID\%class%"
call :remove_key "%~1\Interface\%members%"
call :remove_key "%~1\Interface\%events%"
exit /b 0

:remove_key
"%reg%" query "%~1" >nul 2>nul
if not "%errorlevel%"=="0" exit /b 0
"%reg%" delete "%~1" /f >nul
if not "%errorlevel%"=="0" set "left=%left% %~1"
exit /b 0
