#!/bin/bash
# The main job with keys and the mouse: a new scheme, saved, read again, changed, deleted.
. "$(dirname "$0")/functions"

lines() {
    sql "select tipo, Subtipo, Concepto, Descripcion, CantidadInicio, CantidadFinal, Porcentaje, Calculo
         from ComisionesD where Empresa = '001' and Codigo = 'NAVIDAD' order by tipo, Concepto"
}

lines_are() {
    lines >"$work/lines" && [ "$(cat "$work/lines")" = "$1" ]
}

# find CODE: the lookup of the codes, filtered; the scheme that is chosen is read.
find_scheme() {
    press F8
    await_window "Códigos de Comisión"
    enter "$1"
    press Return
    await_no_window "Códigos de Comisión"
    wait_until "the scheme $1 on screen" status_shows "2026"
}

start_dalvora EMPRESA=001

say "a new scheme: header, a product from the lookup, an amount, a price list"
enter "NAVIDAD"
press Tab
enter "Comisión de fin de año ¿sólo ÓPTICA?"
press Tab
enter "01/12/2026"
press Tab
enter "31/12/2026"
press Tab
enter "Producto"
press Return F8
await_window Productos
press Tab
enter "cot"
press Return
await_no_window Productos
press Tab
for value in "10" "99,5" "12,25" "Neto"; do
    enter "$value"
    press Return
done
click Veltrano 132 211 # the tab Montos
click Veltrano 50 287  # its first cell
for value in "todos" "1000" "4999,99" "2,5" "Total"; do
    enter "$value"
    press Return
done
click Veltrano 200 211 # the tab Precios
click Veltrano 50 287
enter "L1997"
press Return
enter "0,75"
press Return
enter "Neto"
press Return

say "a percentage that cannot be is refused; Esc takes the entry back"
press Up End
enter "x"
press Escape
press Left
enter "150"
press Return
picture refused
answer_message "Porcentaje inválido(a)"
press Escape
picture entered

say "saved"
press ctrl+g
saved="Monto||TODOS| |1000|4999.99|2.5|Total
Precio||L1997|Precios 1997-1998|0|0|0.75|Neto
Producto|Producto|038|Côte de Blaye|10|99.5|12.25|Neto"
wait_until "the saved lines" lines_are "$saved"
expect "the header" "NAVIDAD|Comisión de fin de año ¿sólo ÓPTICA?|01/12/2026|31/12/2026|N" \
    "$(sql "select Codigo, Descripcion, FechaInicio, FechaFinal, Acumulable from Comisiones where Codigo = 'navidad'")"

say "read again and changed; closing asks before it loses that"
find_scheme "navidad"
click Veltrano 50 287 # the first cell of the price lists, whose tab is still in front
expect "the price list on screen" "L1997	Precios 1997-1998	0,75	Neto" "$(copied shift+End)"
press Home Right Right
enter "0,8"
press Return
press alt+F4
answer_message "¿ Seguro de salir perdiendo las modificaciones ingresadas ?" Escape
window_is_there Veltrano || fail "the program ended although the answer was no"
press ctrl+g
wait_until "the changed line" lines_are "${saved/0.75/0.8}"

say "deleted, after a question"
find_scheme "navidad"
press ctrl+e
answer_message "¿ Seguro de eliminar registro ?"
answer_message "Registro Eliminado"
expect "what is left" "0" "$(sql "select count(*) from Comisiones where Codigo = 'NAVIDAD'")"
expect "lines that are left" "" "$(lines)"
expect "the audit trail" "4,5,6" "$(sql "select distinct Codigo from ses_auditoria where Codigo in (4, 5, 6) order by Codigo" | paste -s -d ,)"

say "the end, with nothing to ask"
press alt+F4
await_end
