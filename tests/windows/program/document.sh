#!/bin/bash
# From a report's line to its document: the document program is started, answers, is asked again, refuses, hangs, is
# missing.
. "$(dirname "$0")/functions"

# The first line of the report's first page: FACTURA 10587; the second: FACEXP 10591.
first_line="380 264"
second_line="380 282"

show_report() {
    open_with "Selección de Reporte" ctrl+shift+p
    press Tab
    enter "01/07/1997"
    press Tab
    enter "30/09/1997"
    press Return
    await_window "Visualiza Reportes"
    wait_until "the report's pages" status_shows "página"
}

own_copy "$work/programa"
start_dalvora EMPRESA=001
show_report

say "a click starts the document program, which shows the line's document"
click "Visualiza Reportes" $first_line
wait_until "the document" window_is_there "FACTURA 10587 - Emisión de Documentos"
picture document

say "the next click asks the one that is running"
