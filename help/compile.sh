#!/bin/sh
# Compiles the manual: compile.sh SOURCE-FOLDER OUTPUT.chm [CHMCMD]
#
# The sources are UTF-8 and say so; help files know only code pages, so a copy in cp1252 is compiled. Two builds of
# the same sources in the same folder give the same bytes: the compiler's choice of matches depends on addresses
# in memory, which setarch fixes where it is allowed, and its two time stamps are set to zero afterwards.
set -eu
sources=$1
output=$2
compiler=${3:-chmcmd}
work=$output.work

rm -rf "$work"
mkdir -p "$work"
for file in "$sources"/*.html "$sources"/*.css "$sources"/dalvora.hh?; do
  sed 's/charset="utf-8"/charset="windows-1252"/' "$file" | iconv -f UTF-8 -t CP1252 > "$work/${file##*/}"
done

fixed_addresses="setarch $(uname -m) -R"
$fixed_addresses true 2>/dev/null || fixed_addresses=
(cd "$work" && $fixed_addresses "$compiler" dalvora.hhp) > "$work/log" 2>&1 || { cat "$work/log" >&2; exit 1; }
# The compiler only notes a page that is missing and a link that leads nowhere.
if grep -E -i 'error|undefined|does not exist|corrupt' "$work/log" >&2; then exit 1; fi

zero_at() { printf '\000\000\000\000' | dd of="$work/dalvora.chm" bs=1 seek="$1" conv=notrunc status=none; }
zero_at 16
# In the file's system part the time stands right before the record that names the version.
version=$(LC_ALL=C grep -obUa 'HHA Version' "$work/dalvora.chm" | head -n 1 | cut -d : -f 1)
zero_at $((version - 8))

mv "$work/dalvora.chm" "$output"
rm -rf "$work"
