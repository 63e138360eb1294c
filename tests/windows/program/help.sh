#!/bin/bash
# The manual in the system's own help window: by F1, by the toolbar, its index and its contents. Wine has no browser for
# the pages, so what is shown of them is not looked at.
. "$(dirname "$0")/functions"

manual="Manual de Dalvora"

contents_are_there() {
    import -silent -window "$(window_id "$manual")" -resize 300% -colorspace Gray "$work/manual.png" &&
        tesseract "$work/manual.png" - -l spa --psm 11 2>/dev/null | grep -q "Primeros pasos"
}

start_dalvora EMPRESA=001
say "F1"
open_with "$manual" F1
wait_until "the contents" contents_are_there
picture help
close_window "$manual"

say "the button"
front Veltrano
click Veltrano 324 46
await_window "$manual"
close_window "$manual"

for key in shift+F1 ctrl+F1; do
    say "$key"
    front Veltrano
    open_with "$manual" "$key"
    close_window "$manual"
done

say "left open, it does not keep the program from ending"
front Veltrano
open_with "$manual" F1
front Veltrano
press alt+F4
await_end
