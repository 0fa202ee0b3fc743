#!/bin/sh
# Puts Kelvar, in the folder where this script lies, into the desktop menu of the user who runs it, and makes
# it open their participants' files.
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

data=${XDG_DATA_HOME:-$HOME/.local/share}
entry=$data/applications/$id.desktop
type=$data/mime/packages/$id.xml
icon=$data/icons/hicolor/scalable/mimetypes/application-x-kelvar.svg
mkdir -p -- "${entry%/*}" "${type%/*}" "${icon%/*}"
{
    grep -v -e '^Exec=' -e '^Icon=' "$folder/$id.desktop"
    printf 'Exec="%s" %%f\n' "$(argument "$folder/kelvar")"
    printf 'Icon=%s\n' "$(value "$folder/$id.svg")"
    printf 'Path=%s\n' "$(value "$folder")"
} >"$entry"
cp -- "$folder/$id.xml" "$type"
cp -- "$folder/application-x-kelvar.svg" "$icon"
printf '%s\n' "$entry" "$type" "$icon"

# Where there is no such program, there is no such list either.
refresh() { ! command -v "$1" >/dev/null || "$@"; }
refresh update-mime-database "$data/mime"
refresh update-desktop-database "$data/applications"
