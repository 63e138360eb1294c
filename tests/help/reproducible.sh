#!/bin/sh
# Compiles the manual twice in one folder and expects the same bytes: reproducible.sh COMPILE SOURCES FOLDER CHMCMD
set -eu
setarch "$(uname -m)" -R true 2>/dev/null || exit 77 # fixed addresses are not allowed here
mkdir -p "$3"
"$1" "$2" "$3/manual.chm" "$4"
cp "$3/manual.chm" "$3/first.chm"
sleep 1
"$1" "$2" "$3/manual.chm" "$4"
cmp "$3/manual.chm" "$3/first.chm"
