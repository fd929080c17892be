@echo off
REM Backs up the documents folder; it doesn't delete old copies.
setlocal
set SOURCE=%USERPROFILE%\Documents
set TARGET=D:\Backup

if not exist "%TARGET%" (
    echo Creating "%TARGET%"
    mkdir "%TARGET%"
)
:: The user's temp files aren't copied.
xcopy "%SOURCE%" "%TARGET%" /E /I /Y /EXCLUDE:skip.txt
if errorlevel 1 goto failed
echo Backup done.
goto end

:failed
echo Backup failed with %errorlevel%
rem that's all
:end
endlocal
