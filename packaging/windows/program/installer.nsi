; The installer: makensis -DTREE=folder -DVERSION=1.2.3 -DOUTPUT=file.exe -DICON=file.ico installer.nsi
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel admin

!include "MUI2.nsh"
!include "FileFunc.nsh"

!define PRODUCT "Dalvora"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Dalvora"

Name "${PRODUCT} ${VERSION}"
BrandingText "Quorvane ERP"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\Quorvane\Dalvora"
InstallDirRegKey HKLM "Software\Quorvane\Dalvora" "Carpeta"

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0x0C0A "ProductName" "Quorvane ERP - Dalvora"
VIAddVersionKey /LANG=0x0C0A "FileDescription" "Instalador de Dalvora"
VIAddVersionKey /LANG=0x0C0A "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=0x0C0A "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=0x0C0A "LegalCopyright" ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\bin\dalvora.exe"
!define MUI_FINISHPAGE_RUN_PARAMETERS "EMPRESA=001"
!define MUI_FINISHPAGE_RUN_TEXT "Abrir la empresa de demostración"
!define MUI_FINISHPAGE_RUN_NOTCHECKED
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "SpanishInternational"

; Removes what an installation brought and nothing else: what users made lies in folders of their own.
!macro RemoveProgram
    RMDir /r "$INSTDIR\bin"
    RMDir /r "$INSTDIR\Styles"
    RMDir /r "$INSTDIR\licencias"
    Delete "$INSTDIR\LEEME.txt"
    Delete "$INSTDIR\desinstalar.exe"
!macroend

; The program file goes first: while the program runs it cannot be removed, and then nothing is.
!macro RemoveProgramFile
again:
    ClearErrors
    Delete "$INSTDIR\bin\dalvora.exe"
    IfErrors 0 closed
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Dalvora está abierto. Ciérrelo e inténtelo de nuevo." \
        /SD IDCANCEL IDRETRY again
    SetErrorLevel 2
    Abort "Dalvora está abierto."
closed:
!macroend

Section "Dalvora"
    SetShellVarContext all
    ; An older version goes first, so that none of its files stays beside the new ones.
    IfFileExists "$INSTDIR\bin\dalvora.exe" 0 place
    !insertmacro RemoveProgramFile
    !insertmacro RemoveProgram
place:
    ClearErrors
    SetOutPath "$INSTDIR"
    File /r "${TREE}/*"
    IfErrors 0 written
    SetErrorLevel 2
    MessageBox MB_OK|MB_ICONSTOP "No se pudieron escribir los archivos en $INSTDIR." /SD IDOK
    Abort "No se pudieron escribir los archivos."
written:
    WriteUninstaller "$INSTDIR\desinstalar.exe"

    CreateDirectory "$SMPROGRAMS\Quorvane"
    SetOutPath "$INSTDIR\bin"
    CreateShortCut "$SMPROGRAMS\Quorvane\Dalvora.lnk" "$INSTDIR\bin\dalvora.exe"
    CreateShortCut "$SMPROGRAMS\Quorvane\Dalvora (empresa de demostración).lnk" "$INSTDIR\bin\dalvora.exe" "EMPRESA=001"
    CreateShortCut "$SMPROGRAMS\Quorvane\Ayuda de Dalvora.lnk" "$INSTDIR\bin\dalvora.chm"

    SetRegView 64
    WriteRegStr HKLM "Software\Quorvane\Dalvora" "Carpeta" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Quorvane ERP - Dalvora"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\bin\dalvora.exe"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\desinstalar.exe"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\desinstalar.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section "Uninstall"
    SetShellVarContext all
    SetRegView 64
    !insertmacro RemoveProgramFile
    !insertmacro RemoveProgram
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Quorvane\Dalvora.lnk"
    Delete "$SMPROGRAMS\Quorvane\Dalvora (empresa de demostración).lnk"
    Delete "$SMPROGRAMS\Quorvane\Ayuda de Dalvora.lnk"
    RMDir "$SMPROGRAMS\Quorvane"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
    DeleteRegKey HKLM "Software\Quorvane\Dalvora"
SectionEnd
