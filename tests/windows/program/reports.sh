#!/bin/bash
# Every report, made and exported by the Windows program and by this machine's, with the same keys and from one
# database. Their pages and texts must be the same.
. "$(dirname "$0")/functions"

reports="ComisionesVendedor DetalleCodigos ListaCodigos ResumenMensualVendedor"
native=$root/build/release/bin/dalvora

is_exported() {
    [ -s "$1" ] && window_is_gone "Exportar a PDF"
}

# export_report REPORT FILE NAME: the file's name as the program under test calls it.
export_report() {
    open_with "Selección de Reporte" ctrl+shift+p
    press Home
    for before in $reports; do
        [ "$before" != "$1" ] || break
        press Down
    done
    press Tab
    enter "01/07/1997"
    press Tab
    enter "30/09/1997"
    picture "chosen-$1"
    press Return
    await_window "Visualiza Reportes"
    wait_until "the report's pages" status_shows "página"
    picture "shown-$1"
    open_with "Exportar a PDF" ctrl+e
    insert "$3"
    press Return
    wait_until "the file $2" is_exported "$2"
    close_window "Visualiza Reportes" # which Wine does not put in front again after the system's own dialog
    await_window Veltrano
}

[ -x "$native" ] || fail "this machine's own program is not built: $native"
expect "the reports there are" "$reports" "$(cd "$root/reportes/VELTRANO" && ls -- *.rpt | sed 's/\.rpt$//' | paste -s -d ' ')"

say "on Windows"
start_dalvora EMPRESA=001
mkdir "$work/windows" "$work/native"
for report in $reports; do
    export_report "$report" "$work/windows/$report.pdf" "$(windows_path "$work/windows/$report.pdf")"
done
press alt+F4
await_end

say "on this machine"
mkdir -m 700 "$work/runtime"
QUORVANE_HOME=$home XDG_RUNTIME_DIR=$work/runtime "$native" EMPRESA=001 &
program_pid=$!
await_window Veltrano
wait_until "the company in the status bar" status_shows "$company"
for report in $reports; do
    export_report "$report" "$work/native/$report.pdf" "$work/native/$report.pdf"
done
press alt+F4
await_end

for report in $reports; do
    for side in windows native; do
        pdftotext -layout "$work/$side/$report.pdf" "$work/$side/$report.txt"
    done
    diff -u "$work/native/$report.txt" "$work/windows/$report.txt" >"$work/$report.diff" ||
        fail "$report reads differently, see $work/$report.diff"
    say "$report: $(pdfinfo "$work/windows/$report.pdf" | sed -n 's/^Pages: *//p') pages, the same text"
    expect "$report's pages" "$(pdfinfo "$work/native/$report.pdf" | grep '^Pages:\|^Page size:')" \
        "$(pdfinfo "$work/windows/$report.pdf" | grep '^Pages:\|^Page size:')"
done
