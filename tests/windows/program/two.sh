#!/bin/bash
# Two programs on one database file: one saves while the other reads; one is ended in the middle of a save.
. "$(dirname "$0")/functions"

# read_scheme: MIXTA by the lookup, in the program in front.
read_scheme() {
    open_with "Códigos de Comisión" F8
    enter "mixta"
    press Return
    await_no_window "Códigos de Comisión"
    wait_until "the scheme on screen" status_shows "1998"
}

# The first line's percentage: the cell in front of the last one.
first_percentage() {
    click_active 50 287
    press End Left
}

stored() {
    sql "select top 1 Porcentaje from ComisionesD
         where Empresa = '001' and Codigo = 'MIXTA' and tipo = 'Producto' and Subtipo = 'Producto'"
}

stored_is() {
    [ "$(stored)" = "$1" ]
}

# The whole scheme but for that percentage, whose loss or change would be half a save.
rest() {
    sql "select FechaInicio, tipo, Subtipo, Concepto, CantidadInicio, CantidadFinal, Calculo from ComisionesD
         where Empresa = '001' and Codigo = 'MIXTA' order by FechaInicio, tipo, Subtipo, Concepto"
}

saves() {
    sql "select count(*) from ses_auditoria where Codigo in (5, 6)"
}

more_saves_than() {
    [ "$(saves)" -gt "$1" ]
}

start_dalvora EMPRESA=001
first=$(xdotool getactivewindow)
first_pid=$program_pid
mkdir "$work/otro"
sed "s|Database=quorvane.db|Database=$(windows_path "$home/quorvane.db" | sed 's/\\/\\\\/g')|" "$home/quorvane.ini" >"$work/otro/quorvane.ini"
shared=$home
home=$work/otro
start "$program/bin/dalvora.exe" EMPRESA=001
wait_until "the second program" other_window_in_front "$first"
wait_until "the company in the status bar" status_shows "$company"
home=$shared
second=$(xdotool getactivewindow)
whole=$(rest)

say "what one saves the other reads, while both have the scheme open"
read_scheme
front_id "$first"
read_scheme
first_percentage
enter "2,5"
press Return ctrl+g
wait_until "the first program's save" stored_is 2.5
front_id "$second"
press ctrl+n
read_scheme
first_percentage
expect "the percentage that the second program reads" "2,50" "$(copied)"

say "both changed one line: the later change finds its old line no more, and both are told of no error"
front_id "$first"
read_scheme
first_percentage
enter "3,5"
press Return
front_id "$second"
enter "4,5"
press Return ctrl+g
wait_until "the second program's save" stored_is 4.5
saves=$(saves)
front_id "$first"
press ctrl+g
wait_until "the first program's save" more_saves_than "$saves"
expect "the percentage stored" 4.5 "$(stored)"
expect "the rest of the scheme" "$whole" "$(rest)"

# The save begins a tenth of a second after the key; each round ends the program at another moment of it.
for moment in 0 0.02 0.04 0.06 0.08; do
    old=$(stored)
    new=$(awk "BEGIN { print $old + 0.25 }")
    front_id "$first"
    read_scheme
    first_percentage
    enter "$(echo "$new" | tr . ,)"
    press Return
    xdotool key ctrl+g
    sleep "$moment"
    kill -9 "$first_pid"
    wait "$first_pid" 2>/dev/null || true
    kept=$(stored)
    say "ended $moment s after the key: $old to $new, stored is $kept"
    [ "$kept" = "$old" ] || [ "$kept" = "$new" ] || fail "the line is neither old nor new"
    expect "the rest of the scheme" "$whole" "$(rest)"

    front_id "$second"
    press ctrl+n
    read_scheme
    first_percentage
    enter "1,25"
    press Return ctrl+g
    wait_until "the other program's save" stored_is 1.25
    start_dalvora EMPRESA=001
    first=$(xdotool getactivewindow)
    first_pid=$program_pid
done

say "the database is sound"
WINEPATH=$(windows_path "$tree/bin") wine "$tree/bin/quorvane-admin.exe" --perfil "$(windows_path "$home")" revisar \
    >"$work/check" 2>&1 || fail "the administrator finds fault: $(cat "$work/check")"
