; The installer for Windows: for the one user who starts it, without an administrator's rights and without a question to
; the firewall, which Windows asks itself when the program listens for the first time.
; 64 bits, like the program: where nothing else could run, the installer does not either.
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true

!include MUI2.nsh

!define REGISTERED "Software\Microsoft\Windows\CurrentVersion\Uninstall\Brontavia"

Name "Brontavia"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Brontavia"
InstallDirRegKey HKCU "${REGISTERED}" "InstallLocation"
BrandingText "Brontavia ${VERSION}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\brontavia.exe"
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\manual\index.html"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Leer el manual"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Spanish"

VIProductVersion "${NUMBERS}"
VIAddVersionKey "ProductName" "Brontavia"
VIAddVersionKey "FileDescription" "Instalador de Brontavia"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "GPL-3.0-or-later"

Section
  SetOutPath "$INSTDIR"
  File /r /x Brontavia.ini "${STAGE}/*.*"
  ; The port may have been changed.
  SetOverwrite off
  File "${STAGE}/Brontavia.ini"
  SetOverwrite on
  WriteUninstaller "$INSTDIR\desinstalar.exe"

  CreateShortcut "$SMPROGRAMS\Brontavia.lnk" "$INSTDIR\brontavia.exe"
  CreateShortcut "$DESKTOP\Brontavia.lnk" "$INSTDIR\brontavia.exe"

  WriteRegStr HKCU "${REGISTERED}" "DisplayName" "Brontavia"
  WriteRegStr HKCU "${REGISTERED}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${REGISTERED}" "DisplayIcon" "$INSTDIR\brontavia.exe"
  WriteRegStr HKCU "${REGISTERED}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${REGISTERED}" "UninstallString" '"$INSTDIR\desinstalar.exe"'
  WriteRegStr HKCU "${REGISTERED}" "QuietUninstallString" '"$INSTDIR\desinstalar.exe" /S'
  WriteRegDWORD HKCU "${REGISTERED}" "NoModify" 1
  WriteRegDWORD HKCU "${REGISTERED}" "NoRepair" 1
SectionEnd

Section "Uninstall"
  Delete "$SMPROGRAMS\Brontavia.lnk"
  Delete "$DESKTOP\Brontavia.lnk"
  !include "${REMOVE}"
  Delete "$INSTDIR\desinstalar.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKCU "${REGISTERED}"
SectionEnd
