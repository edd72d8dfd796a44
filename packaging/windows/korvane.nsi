; SPDX-License-Identifier: GPL-3.0-or-later
; makensis -DVERSION=<version> -DFROM=<folder with the files> -DTO=<setup.exe> -DICON=<icon> korvane.nsi
Target amd64-unicode
ManifestDPIAware true
RequestExecutionLevel user
SetCompressor /SOLID lzma
Name "Korvane"
OutFile "${TO}"
InstallDir "$LOCALAPPDATA\Programs\Korvane"
!define SETUP "Software\Ferncastle Software\Setup"
!define GONE "Software\Microsoft\Windows\CurrentVersion\Uninstall\Korvane"
InstallDirRegKey HKCU "${SETUP}" "Korvane"
Icon "${ICON}"
UninstallIcon "${ICON}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Korvane"
VIAddVersionKey "CompanyName" "Ferncastle Software"
VIAddVersionKey "FileDescription" "Korvane setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "GPL-3.0-or-later"

LicenseData "${FROM}/LICENSE.txt"
Page license
Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; Whether the database in the folder is the sample of this setup, or of the one before it: what the user has packed has
; other times than those that were noted. Leaves "yes" in $0 when it is, or when there is none.
!macro IS_SAMPLE
  StrCpy $0 "yes"
  ReadRegStr $1 HKCU "${SETUP}" "Sample"
  !insertmacro TIMES_OF_DATABASE
  ${If} $2 != ""
  ${AndIf} $2 != $1
    StrCpy $0 "no"
  ${EndIf}
!macroend

!macro TIMES_OF_DATABASE
  StrCpy $2 ""
  ${If} ${FileExists} "$INSTDIR\Data.DBF"
  ${OrIf} ${FileExists} "$INSTDIR\Data.DBT"
    GetFileTime "$INSTDIR\Data.DBF" $3 $4
    GetFileTime "$INSTDIR\Data.DBT" $5 $6
    StrCpy $2 "$3 $4 $5 $6"
  ${EndIf}
!macroend

!include LogicLib.nsh

Section
  SetOutPath $INSTDIR
  File "${FROM}/korvane.exe"
  File "${FROM}/korvane-check.exe"
  File "${FROM}/korvane-diff.exe"
  File "${FROM}/korvane-names.exe"
  File "${FROM}/korvane-stock.exe"
  File "${FROM}/KORVANE.HLP"
  File "${FROM}/LICENSE.txt"
  File "${FROM}/NOTICES.txt"
  File "${FROM}/SOURCES.txt"
  !insertmacro IS_SAMPLE
  ${If} $0 == "yes"
    File "${FROM}/Data.DBF"
    File "${FROM}/Data.DBT"
    !insertmacro TIMES_OF_DATABASE
    WriteRegStr HKCU "${SETUP}" "Sample" $2
  ${EndIf}
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Korvane.lnk" "$INSTDIR\korvane.exe"
  WriteRegStr HKCU "${SETUP}" "Korvane" $INSTDIR
  WriteRegStr HKCU "${GONE}" "DisplayName" "Korvane"
  WriteRegStr HKCU "${GONE}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${GONE}" "Publisher" "Ferncastle Software"
  WriteRegStr HKCU "${GONE}" "DisplayIcon" "$INSTDIR\korvane.exe"
  WriteRegStr HKCU "${GONE}" "InstallLocation" $INSTDIR
  WriteRegStr HKCU "${GONE}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${GONE}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${GONE}" "NoModify" 1
  WriteRegDWORD HKCU "${GONE}" "NoRepair" 1
SectionEnd

; Settings, kept versions and a database of the user's own stay.
Section "Uninstall"
  Delete "$INSTDIR\korvane.exe"
  Delete "$INSTDIR\korvane-check.exe"
  Delete "$INSTDIR\korvane-diff.exe"
  Delete "$INSTDIR\korvane-names.exe"
  Delete "$INSTDIR\korvane-stock.exe"
  Delete "$INSTDIR\KORVANE.HLP"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\NOTICES.txt"
  Delete "$INSTDIR\SOURCES.txt"
  !insertmacro IS_SAMPLE
  ${If} $0 == "yes"
    Delete "$INSTDIR\Data.DBF"
    Delete "$INSTDIR\Data.DBT"
  ${EndIf}
  Delete "$INSTDIR\uninstall.exe"
  RMDir $INSTDIR
  Delete "$SMPROGRAMS\Korvane.lnk"
  DeleteRegKey HKCU "${GONE}"
  DeleteRegKey HKCU "${SETUP}"
SectionEnd
