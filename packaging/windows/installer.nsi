; The installer: for the user who runs it, without an administrator's rights. It knows the
; program's own files only; nothing in it ever touches the folder with settings and data.
;
; VERSION, FILES (the folder with the program), ICON and RESULT are given on the command line.

Unicode true
; The program is for 64-bit Windows alone, and so is its installer.
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true

Name "Bramblet"
OutFile "${RESULT}"
InstallDir "$LOCALAPPDATA\Programs\Bramblet"
InstallDirRegKey HKCU "Software\Quenmoor\Bramblet" "InstallFolder"
BrandingText "Bramblet ${VERSION}"

VIProductVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "Bramblet"
VIAddVersionKey "CompanyName" "Quenmoor"
VIAddVersionKey "FileDescription" "Bramblet set-up"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "MIT licence"

!include "MUI2.nsh"
!include "FileFunc.nsh"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\bramblet.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Bramblet"

!define ITEMS "Bramblet.StockItems"
!define ITEMS_KEY "Software\Classes\${ITEMS}"

Section
    SetShellVarContext current
    SetOutPath "$INSTDIR"
    File "${FILES}/bramblet.exe"
    File "${FILES}/LICENSE.txt"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Bramblet.lnk" "$INSTDIR\bramblet.exe"

    WriteRegStr HKCU "Software\Quenmoor\Bramblet" "InstallFolder" "$INSTDIR"
    ; Another program's claim on the files' ending is left alone: it is only offered ours as well.
    WriteRegStr HKCU "${ITEMS_KEY}" "" "Bramblet Stock Items"
    WriteRegStr HKCU "${ITEMS_KEY}\DefaultIcon" "" "$INSTDIR\bramblet.exe,0"
    WriteRegStr HKCU "${ITEMS_KEY}\shell\open\command" "" '"$INSTDIR\bramblet.exe" "%1"'
    WriteRegStr HKCU "Software\Classes\.sid\OpenWithProgids" "${ITEMS}" ""
    ReadRegStr $0 HKCU "Software\Classes\.sid" ""
    ${If} $0 == ""
        WriteRegStr HKCU "Software\Classes\.sid" "" "${ITEMS}"
    ${EndIf}
    ${RefreshShellIcons}

    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Bramblet"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\bramblet.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Quenmoor"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section "Uninstall"
    SetShellVarContext current
    ; While the program runs its file cannot be deleted; then everything stays.
    ClearErrors
    Delete "$INSTDIR\bramblet.exe"
    ${If} ${Errors}
        MessageBox MB_OK|MB_ICONEXCLAMATION "Bramblet is running. Close it and try again." /SD IDOK
        Abort
    ${EndIf}
    Delete "$INSTDIR\LICENSE.txt"
    Delete "$INSTDIR\uninstall.exe"
    ; Only when empty: what somebody else has put there is not ours.
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Bramblet.lnk"
    ReadRegStr $0 HKCU "Software\Classes\.sid" ""
    ${If} $0 == "${ITEMS}"
        DeleteRegValue HKCU "Software\Classes\.sid" ""
    ${EndIf}
    DeleteRegValue HKCU "Software\Classes\.sid\OpenWithProgids" "${ITEMS}"
    DeleteRegKey /ifempty HKCU "Software\Classes\.sid\OpenWithProgids"
    DeleteRegKey /ifempty HKCU "Software\Classes\.sid"
    DeleteRegKey HKCU "${ITEMS_KEY}"
    ${RefreshShellIcons}
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    DeleteRegKey HKCU "Software\Quenmoor\Bramblet"
    DeleteRegKey /ifempty HKCU "Software\Quenmoor"
SectionEnd
