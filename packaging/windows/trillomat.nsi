; The installer: for one user, without administrator rights. What the user makes is left alone when
; the program goes: melodies, settings and the log.
;
; makensis -DVERSION=... -DSOURCE=FOLDER (with the programs) -DICON=... -DOUTPUT=...
Unicode true
Target amd64-unicode
!include MUI2.nsh
!include Sections.nsh

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Trillomat"
!define CLASSES "Software\Classes"

Name "Trillomat"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Trillomat"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
SetCompressor /SOLID lzma
ManifestDPIAware true
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Trillomat"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Trillomat setup"
VIAddVersionKey "LegalCopyright" ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\trillomat.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A type that opens with Trillomat, and files that have no type yet are of that type.
!macro Associate extension description
  WriteRegStr HKCU "${CLASSES}\Trillomat.${extension}" "" "${description}"
  WriteRegStr HKCU "${CLASSES}\Trillomat.${extension}\DefaultIcon" "" "$INSTDIR\trillomat.exe,0"
  WriteRegStr HKCU "${CLASSES}\Trillomat.${extension}\shell\open\command" "" '"$INSTDIR\trillomat.exe" "%1"'
  WriteRegStr HKCU "${CLASSES}\.${extension}\OpenWithProgids" "Trillomat.${extension}" ""
  ReadRegStr $0 HKCR ".${extension}" ""
  StrCmp $0 "" 0 +2
  WriteRegStr HKCU "${CLASSES}\.${extension}" "" "Trillomat.${extension}"
!macroend

!macro Dissociate extension
  DeleteRegKey HKCU "${CLASSES}\Trillomat.${extension}"
  DeleteRegValue HKCU "${CLASSES}\.${extension}\OpenWithProgids" "Trillomat.${extension}"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.${extension}\OpenWithProgids"
  ReadRegStr $0 HKCU "${CLASSES}\.${extension}" ""
  StrCmp $0 "Trillomat.${extension}" 0 +2
  DeleteRegValue HKCU "${CLASSES}\.${extension}" ""
  DeleteRegKey /ifempty HKCU "${CLASSES}\.${extension}"
!macroend

; The desktop reads the types again (SHCNE_ASSOCCHANGED).
!macro TellDesktop
  System::Call 'shell32::SHChangeNotify(i 0x8000000, i 0, p 0, p 0)'
!macroend

Section "Trillomat" SectionProgram
  SectionIn RO
  SetOutPath "$INSTDIR"
  File "${SOURCE}\trillomat.exe"
  File "${SOURCE}\trillomat-cli.exe"
  File "${SOURCE}\README.md"
  File "${SOURCE}\Qt-licenses.txt"
  File /r "${SOURCE}\share"
  CreateShortCut "$SMPROGRAMS\Trillomat.lnk" "$INSTDIR\trillomat.exe"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Trillomat"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\trillomat.exe,0"
  WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

Section "Open melody files with Trillomat" SectionTypes
  !insertmacro Associate imy "iMelody ringtone"
  !insertmacro Associate emy "EMelody ringtone"
  !insertmacro Associate rtx "RTTTL ringtone"
  !insertmacro Associate mel "Melody ringtone"
  !insertmacro TellDesktop
SectionEnd

Section "Desktop shortcut" SectionDesktop
  CreateShortCut "$DESKTOP\Trillomat.lnk" "$INSTDIR\trillomat.exe"
SectionEnd

LangString DescriptionProgram ${LANG_ENGLISH} "The program, its command line, and an entry in the Start menu."
LangString DescriptionTypes ${LANG_ENGLISH} ".imy, .emy, .rtx and .mel files open with Trillomat on a double click."
LangString DescriptionDesktop ${LANG_ENGLISH} "An icon on the desktop."
!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionProgram} $(DescriptionProgram)
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionTypes} $(DescriptionTypes)
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionDesktop} $(DescriptionDesktop)
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; Names each file and the one folder of its own: the rest may be the user's.
Section "Uninstall"
  Delete "$INSTDIR\trillomat.exe"
  Delete "$INSTDIR\trillomat-cli.exe"
  Delete "$INSTDIR\README.md"
  Delete "$INSTDIR\Qt-licenses.txt"
  RMDir /r "$INSTDIR\share\trillomat"
  RMDir "$INSTDIR\share"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Trillomat.lnk"
  Delete "$DESKTOP\Trillomat.lnk"
  !insertmacro Dissociate imy
  !insertmacro Dissociate emy
  !insertmacro Dissociate rtx
  !insertmacro Dissociate mel
  !insertmacro TellDesktop
  DeleteRegKey HKCU "${UNINSTALL}"
SectionEnd
