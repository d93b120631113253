; The installer: for one user, without administrator's rights. Silent with /S; /D=FOLDER chooses the folder.
; Given by the build: VERSION, FILES (the folder that is installed), ICON, OUTPUT, SAMPLES (a PutSample for each sample),
; REMOVE (what to delete again, with a RemoveSample for each).
Target amd64-unicode
SetCompressor /SOLID lzma
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

!define PROGRAM "$INSTDIR\pistaro.exe"
!define TYPE "Pistaro.Circuit"
!define BEFORE "BeforePistaro" ; what opened circuit files
!define CLASSES "Software\Classes"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Pistaro"

Name "Pistaro"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Pistaro"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS all
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Pistaro"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Installs Pistaro"
VIAddVersionKey "LegalCopyright" "The Pistaro developers"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "${PROGRAM}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; The desktop shows file types anew.
!macro TypesChanged
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

; When each sample was written as it was installed: what has another time is the user's own work.
!define TIMES "$INSTDIR\samples.ini"

; Sets $0 to "changed" where a sample stands that is not as it was installed.
!macro LookAtSample NAME
    StrCpy $0 ""
    ${If} ${FileExists} "$INSTDIR\samples\${NAME}"
        GetFileTime "$INSTDIR\samples\${NAME}" $1 $2
        ReadINIStr $3 "${TIMES}" "Installed" "${NAME}"
        ${If} $3 != "$1.$2"
            StrCpy $0 "changed"
        ${EndIf}
    ${EndIf}
!macroend

!macro PutSample NAME
    !insertmacro LookAtSample "${NAME}"
    ${If} $0 == ""
        File "${FILES}/samples/${NAME}"
        GetFileTime "$INSTDIR\samples\${NAME}" $1 $2
        WriteINIStr "${TIMES}" "Installed" "${NAME}" "$1.$2"
    ${EndIf}
!macroend

!macro RemoveSample NAME
    !insertmacro LookAtSample "${NAME}"
    ${If} $0 == ""
        Delete "$INSTDIR\samples\${NAME}"
    ${EndIf}
!macroend

Section "Pistaro"
    SetOutPath "$INSTDIR"
    File /r /x *.trk "${FILES}/*"
    SetOutPath "$INSTDIR\samples"
    !include "${SAMPLES}"
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortCut "$SMPROGRAMS\Pistaro.lnk" "${PROGRAM}"

    WriteRegStr HKCU "${CLASSES}\${TYPE}" "" "Slot-car circuit"
    WriteRegStr HKCU "${CLASSES}\${TYPE}\DefaultIcon" "" "${PROGRAM},0"
    WriteRegStr HKCU "${CLASSES}\${TYPE}\shell\open\command" "" '"${PROGRAM}" "%1"'
    WriteRegStr HKCU "${CLASSES}\.trk\OpenWithProgids" "${TYPE}" ""
    ReadRegStr $0 HKCU "${CLASSES}\.trk" ""
    ${If} $0 != "${TYPE}"
        WriteRegStr HKCU "${CLASSES}\.trk" "${BEFORE}" "$0"
    ${EndIf}
    WriteRegStr HKCU "${CLASSES}\.trk" "" "${TYPE}"
    !insertmacro TypesChanged

    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Pistaro"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "${PROGRAM}"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "The Pistaro developers"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" $0
SectionEnd

; Only what was installed goes: a design that a user saved among the samples stays, a sample that was changed, and so do
; settings and designs elsewhere.
Section "Uninstall"
    !include "${REMOVE}"
    Delete "${TIMES}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Pistaro.lnk"

    DeleteRegKey HKCU "${CLASSES}\${TYPE}"
    DeleteRegValue HKCU "${CLASSES}\.trk\OpenWithProgids" "${TYPE}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\.trk\OpenWithProgids"
    ReadRegStr $0 HKCU "${CLASSES}\.trk" ""
    ${If} $0 == "${TYPE}" ; another was not chosen since
        ReadRegStr $1 HKCU "${CLASSES}\.trk" "${BEFORE}"
        ${If} $1 == ""
            DeleteRegValue HKCU "${CLASSES}\.trk" ""
        ${Else}
            WriteRegStr HKCU "${CLASSES}\.trk" "" "$1"
        ${EndIf}
    ${EndIf}
    DeleteRegValue HKCU "${CLASSES}\.trk" "${BEFORE}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\.trk"
    DeleteRegKey HKCU "${UNINSTALL}"
    !insertmacro TypesChanged
SectionEnd
