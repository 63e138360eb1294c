#!/bin/bash
# Files of the installation that are missing: what the user is told, and that the program goes on.
. "$(dirname "$0")/functions"

say "no style file: one warning, and the plain look"
own_copy "$work/sin estilo"
rm -r "$program/Styles"
start "$program/bin/dalvora.exe" EMPRESA=001
answer_message "Office2007.cjstyles"
await_window Veltrano
wait_until "the company in the status bar" status_shows "$company"
picture no-style
press alt+F4
await_end

say "no report definitions, no queries, no manual"
own_copy "$work/sin archivos"
rm -r "$program/bin/reportes" "$program/bin/DALVORA.qry" "$program/bin/dalvora.chm"
start_dalvora EMPRESA=001
press F8
message_title="Quorvane ERP" answer_message "Error al procesar consulta CodigosComision"
press F1
message_title=Ayuda answer_message "dalvora.chm"
open_with "Selección de Reporte" ctrl+shift+p
press Escape
await_no_window "Selección de Reporte"
press alt+F4
await_end

say "no module for requests: told at the click, and the report goes on"
own_copy "$work/sin requerimientos"
rm "$program/bin/quorvane/quorvane_dde_module.dll"
start_dalvora EMPRESA=001
show_report
click "Visualiza Reportes" 380 264
answer_message "quorvane_dde_module"
say "$said"
close_window "Visualiza Reportes"
close_window Veltrano
await_end

say "no library of the toolkit: the system does not start the program"
own_copy "$work/sin biblioteca"
rm "$program/bin/Qt6Widgets.dll"
start "$program/bin/dalvora.exe" EMPRESA=001
await_end
! wait "$program_pid" || fail "the program claims to have worked"
