#!/bin/bash
# The start with the company, told in the ways in which an ERP may tell it.
. "$(dirname "$0")/functions"

say "a first start makes the company"
start_dalvora EMPRESA=001
expect "the companies" '001,002' "$(sql 'select distinct Empresa from Comisiones order by Empresa' | paste -s -d ,)"
close_window Veltrano
await_end

say "lower case, another key beside it, no company but the key's"
start_dalvora "empresa=001;usuario=x"
close_window Veltrano
await_end

say "blanks, which part the line into arguments"
company='Bebidas del Sur'
start_dalvora "USUARIO=juan" "perez ;EMPRESA=002"
close_window Veltrano
await_end

say "a user folder with blanks and accents"
home="$work/Año nuevo/Comisión ñandú"
mkdir -p "$home"
company='Viento Norte'
start_dalvora EMPRESA=001
[ -f "$home/quorvane.db" ] || fail "nothing in $home"
close_window Veltrano
await_end

say "a company that there is not"
start "$program/bin/dalvora.exe" EMPRESA=999
answer_message "La empresa «999» no existe o no está en el perfil."
await_end
