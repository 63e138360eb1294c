#!/bin/bash
# The installer: without a question and page by page; what it installs starts; what it leaves when it is gone.
. "$(dirname "$0")/functions"

pack() {
    "$root/packaging/windows/pack" "$build" >"$work/pack.log" 2>&1
}

say "packing"
pack || fail "packing: $(tail -n 5 "$work/pack.log")"
installer=$(echo "$build"/packages/dalvora-*-windows-x64.exe)
disk=$WINEPREFIX/drive_c
folder="$disk/Archivos de programa/Comisión ñandú"
menu="$disk/ProgramData/Microsoft/Windows/Start Menu/Programs/Quorvane"
rm -rf "$folder" "$menu"

say "without a question, into a folder with blanks and accents"
# By the command interpreter, since the folder's name may not stand in quotation marks.
start cmd /c "$(windows_path "$installer") /S /D=C:\\Archivos de programa\\Comisión ñandú"
await_end
(cd "$tree" && find . -type f | sort) >"$work/packed"
(cd "$folder" && find . -type f ! -name desinstalar.exe | sort) >"$work/installed"
diff "$work/packed" "$work/installed" || fail "not all was installed"
ls "$menu" >"$work/menu"
picture installed

say "the start menu's entry starts it with the demonstration company"
start start.exe /wait /unix "$menu/Dalvora (empresa de demostración).lnk"
await_window Veltrano
wait_until "the company in the status bar" status_shows "$company"

say "while it is open nothing of it is removed"
code=0
# In its place, not from a copy as usual: this way its exit code is seen.
(cd "$folder" && wine cmd /c 'desinstalar.exe /S _?=C:\Archivos de programa\Comisión ñandú') >>"$work/output" 2>&1 ||
    code=$?
[ "$code" = 2 ] || fail "the removal ended with exit code $code"
(cd "$folder" && find . -type f ! -name desinstalar.exe | sort) >"$work/left"
diff "$work/packed" "$work/left" || fail "something was removed"
ls "$menu" | diff "$work/menu" - || fail "the start menu was changed"
close_window Veltrano
await_end

say "removed without a question: the program is gone, the user's data stays"
start "$folder/desinstalar.exe" /S
await_end
program_is_gone() { [ ! -e "$folder" ] && [ ! -e "$menu" ]; }
wait_until "the end of the removal" program_is_gone
[ -s "$home/quorvane.db" ] || fail "the user's data is gone"

say "page by page, into the usual folder"
title="Instalación de $(sed -n 's/^project(\(Dalvora\) VERSION \([0-9.]*\).*/\1 \2/p' "$root/CMakeLists.txt")"
usual="$disk/Program Files/Quorvane/Dalvora"
rm -rf "$usual"
start "$installer"
await_window "$title"
wait_until "the first page" reads "Bienvenido"
picture page-1
press Return
wait_until "the folder's page" reads "lugar de"
picture page-2
press Return
wait_until "the last page" reads "Finalizando"
picture page-3
press Return
await_end
[ -x "$usual/bin/dalvora.exe" ] || fail "nothing was installed"

say "removed page by page"
title="Desinstalación de ${title#Instalación de }"
start "$usual/desinstalar.exe"
await_window "$title"
picture remove-1
press Return
wait_until "the removal" [ ! -e "$menu" ]
wait_until "the removal's last page" reads "Finalizad"
picture remove-2
press Return
await_no_window "$title"
[ ! -e "$usual" ] || fail "left behind: $(ls "$usual")"
[ -s "$home/quorvane.db" ] || fail "the user's data is gone"
