#!/bin/sh
# Puts Kelvar, in the folder where this script lies, into the desktop menu of the user who runs it.
set -eu

id=io.github.kelvar.Kelvar
folder=$(CDPATH='' cd -- "$(dirname -- "$0")" && pwd)
case $folder in
    *[=%[:cntrl:]]*)
        echo "A menu cannot start a program from this folder, for the sake of its name: $folder" >&2
        exit 1
        ;;
esac

# Every value doubles its backslashes; inside the quotes of Exec a few signs need one.
value() { printf '%s' "$1" | sed 's/\\/\\\\/g'; }
argument() { value "$(printf '%s' "$1" | sed 's/[\\"`$]/\\&/g')"; }

menu=${XDG_DATA_HOME:-$HOME/.local/share}/applications
mkdir -p -- "$menu"
{
    grep -v -e '^Exec=' -e '^Icon=' "$folder/$id.desktop"
    printf 'Exec="%s"\n' "$(argument "$folder/kelvar")"
    printf 'Icon=%s\n' "$(value "$folder/$id.svg")"
    printf 'Path=%s\n' "$(value "$folder")"
} >"$menu/$id.desktop"
printf '%s\n' "$menu/$id.desktop"
