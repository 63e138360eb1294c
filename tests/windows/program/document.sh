#!/bin/bash
# From a report's line to its document: the document program is started, answers, is asked again, refuses, hangs, is
# missing.
. "$(dirname "$0")/functions"

# The first line of the report's first page: FACTURA 10587; the second: FACEXP 10591.
first_line="380 264"
second_line="380 282"

documents() {
    wine_process Lorbadeno.Exe
}

# The id of the window, whatever document it shows.
document_window() {
    windows | sed -n 's/^\([0-9]*\) .* - Emisión de Documentos$/\1/p' | grep .
}

no_documents() {
    [ -z "$(documents)" ]
}

other_documents() {
    [ -n "$(documents)" ] && [ "$(documents)" != "$before" ]
}

own_copy "$work/programa"
start_dalvora EMPRESA=001
show_report

say "without the document program the reason is told"
mv "$program/bin/Lorbadeno.Exe" "$work"
click "Visualiza Reportes" $first_line
answer_message "No se pudo iniciar aplicación"
mv "$work/Lorbadeno.Exe" "$program/bin"

say "a click starts it, and it shows the line's document"
front "Visualiza Reportes"
click "Visualiza Reportes" $first_line
wait_until "the first document" window_is_there "Factura de venta 10587 - Emisión de Documentos"
wait_until "the process of the document program" documents
before=$(documents)
picture document

say "the next click asks the one that is running"
front "Visualiza Reportes"
click "Visualiza Reportes" $second_line
wait_until "the second document" window_is_there "Factura de exportación 10591 - Emisión de Documentos"
expect "the document program's process" "$before" "$(documents)"

say "it hangs: the time-out is told, and the report goes on"
front "Visualiza Reportes"
frozen=$before
kill -STOP $frozen
click "Visualiza Reportes" $first_line
started=$(date +%s)
limit=180 answer_message "Error al enviar requerimiento a aplicación externa Emisión de Documentos"
say "told after $(($(date +%s) - started)) s: $said"
status_shows "página" || fail "the report's window does not answer any more"
kill -CONT $frozen
frozen=

say "it was closed: the next click starts another"
wait_until "the document program's window" document_window
front_id "$(document_window)"
press alt+F4
wait_until "the end of the document program" no_documents
front "Visualiza Reportes"
click "Visualiza Reportes" $second_line
wait_until "the second document" window_is_there "Factura de exportación 10591 - Emisión de Documentos"
wait_until "another document program" other_documents

say "it refuses a company that its profile does not name, and says so"
close_window "Factura de exportación 10591 - Emisión de Documentos"
wait_until "the end of the document program" no_documents
sed -i 's/^Codigos=.*/Codigos=002/' "$home/quorvane.ini"
front "Visualiza Reportes"
click "Visualiza Reportes" $first_line
answer_message "Aplicación no procesó el requerimiento"
say "$said"

close_window "Emisión de Documentos"
close_window "Visualiza Reportes"
close_window Veltrano
await_end
