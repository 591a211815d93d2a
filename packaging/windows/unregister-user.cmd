@echo off
rem Takes away what register-user.cmd has registered. Ends with 0 when all of it went well, and with 1 otherwise.
"%~dp0register-user.cmd" /u
