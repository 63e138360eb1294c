#!/bin/bash
# Folders that a program meets: blanks and accents in its own and the user's, one that cannot be written.
. "$(dirname "$0")/functions"

say "installed below blanks and accents, for a user with accents"
own_copy "$work/Archivos de programa/Comisión ñandú (Ünï)"
home="$work/José Ibáñez/Mis cosas"
mkdir -p "$home"
start_dalvora EMPRESA=001
press F8
await_window "Códigos de Comisión"
press Escape
await_no_window "Códigos de Comisión"
show_report
open_with "Exportar a PDF" ctrl+e
mkdir "$work/Año 1997"
insert "$(windows_path "$work/Año 1997/Comisión.pdf")"
press Return
wait_until "the exported report" [ -s "$work/Año 1997/Comisión.pdf" ]
front "Visualiza Reportes"
click "Visualiza Reportes" 380 300
wait_until "the document" window_is_there "Factura de venta 10587 - Emisión de Documentos"
picture accents
close_window "Factura de venta 10587 - Emisión de Documentos"
close_window "Visualiza Reportes"
close_window Veltrano
await_end
program=$tree

say "a user folder that cannot be made"
home=/proc/quorvane
start "$program/bin/dalvora.exe" EMPRESA=001
answer_message "Error al iniciar aplicación"
say "$said"
await_end

say "a user folder that cannot be written"
home=/proc/self
start "$program/bin/dalvora.exe" EMPRESA=001
answer_message "Error al iniciar aplicación"
say "$said"
await_end
