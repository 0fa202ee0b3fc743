#!/usr/bin/env bash
# package_test.sh BUILD: packs what BUILD holds, unpacks it elsewhere and uses it as its receiver would.
set -euo pipefail

build=$1
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
id=io.github.kelvar.Kelvar
work=$(mktemp -d)
program=
trap '[ -z "$program" ] || kill "$program" 2>/dev/null || true; rm -rf "$work"' EXIT

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

SOURCE_DATE_EPOCH=$(date +%s) "$build/packaging/pack.sh" "$work" >"$work/log" 2>&1 || fail "$(cat "$work/log")"
archives=("$work"/kelvar-*.tar.gz)
[ ${#archives[@]} -eq 1 ] || fail "more than one archive: ${archives[*]}"
place="$work/Alice's \"plans\" at \$5"
mkdir "$place"
tar -xzf "${archives[0]}" -C "$place"
folder=$place/$(basename "${archives[0]}" .tar.gz)
[ "$(ls "$place")" = "$(basename "$folder")" ] || fail "not one folder: $(ls "$place")"

# --- What is in it
for file in kelvar add-to-menu.sh; do
    [ -x "$folder/$file" ] || fail "$file is missing or cannot be run"
done
reports=({periodic,partial,lumpsum,yearly,schedule,schefix,schelife,compare}.rpt)
for file in vestoraq.mdb vestoraq.hlp "${reports[@]}" LICENSE README.txt $id.{svg,desktop,metainfo.xml,xml} \
    application-x-kelvar.svg kelvar.1 changelog copyright; do
    [ -s "$folder/$file" ] || fail "$file is missing or empty"
done
for report in "$source"/data/reports/*.rpt; do
    cmp "$report" "$folder/$(basename "$report")" || fail "a report template is not the one of the sources"
done
tar -tzf "${archives[0]}" | LC_ALL=C sort --check || fail "the order in the archive is that of a disk"
[ "$(stat -c %a "$folder/vestoraq.mdb")" = 600 ] || fail "others may read the database"
! readelf --wide --sections "$folder/kelvar" | grep -q ' \.symtab ' || fail "the program is not stripped"

rows() { sqlite3 "$folder/vestoraq.mdb" "SELECT count(*) FROM $1"; }
for table in lifexp joinlife rate; do
    [ "$(rows $table)" -eq $(($(wc -l <"$source/data/$table.csv") - 1)) ] || fail "rows of $table: $(rows $table)"
done
[ "$(rows schedule)" -eq 0 ] || fail "the database holds a schedule"
[ "$(rows "distrib WHERE coalesce(dtitle, curvalue, rate) IS NULL")" -eq 1 ] || fail "the heading is not blank"

# --- Whether the packages its README names bring every library
# Takes all alternatives of a dependency: those that are not installed have no libraries here.
with_dependencies() {
    local known='' next=$*
    while [ -n "$next" ]; do
        known=$(printf '%s\n' $known $next | sort -u)
        next=$(dpkg-query -W -f='${Pre-Depends}, ${Depends}, ' $next 2>/dev/null |
            sed 's/([^)]*)//g; s/:[a-z0-9]*//g' | tr ',|' '\n\n' | tr -d ' ' | grep . | sort -u |
            comm -23 - <(echo "$known") || true)
    done
    echo "$known"
}
if command -v dpkg-query >/dev/null; then
    named=$(sed -n 's/^sudo apt-get install //p' "$folder/README.txt")
    [ -n "$named" ] || fail "README.txt names no packages"
    for package in $named; do
        dpkg-query -W "$package" >/dev/null || fail "$package, named in README.txt, is not installed here"
    done
    brought=$(with_dependencies $named)
    libraries=$(ldd "$folder/kelvar")
    ! grep 'not found' <<<"$libraries" || fail "libraries are missing"
    # Loaded while it runs: the screen, the database of the help, the printers.
    plugins=$(dirname "$(ldconfig -p | sed -n 's/.*libQt6Core\.so\.6 .*=> //p' | head -n 1)")/qt6/plugins
    needed=$(readlink -f $(awk '$3 ~ "^/" { print $3 }' <<<"$libraries") \
        "$plugins"/{platforms/libqxcb,sqldrivers/libqsqlite,printsupport/libcupsprintersupport}.so)
    # Packages may still name a library by the folder that is now a link.
    owners=$(dpkg-query -S $needed ${needed//\/usr\//\/} 2>/dev/null | sed 's/:[^ ]* / /' || true)
    for library in $needed; do
        owner=$(awk -v library="${library#/usr}" '$2 == library || $2 == "/usr" library { print $1; exit }' <<<"$owners")
        grep -qxF "${owner:-none}" <<<"$brought" ||
            fail "$library belongs to ${owner:-no package}, which the packages in README.txt do not bring"
    done
    # Without it any font will do for the dependencies, but not for the look.
    grep -qwF fonts-dejavu-core <<<"$named" || fail "README.txt does not name the font"
    depends=$(dpkg-deb -f "$work"/kelvar_*.deb Depends)
    for package in $named; do
        grep -qwF "$package" <<<"$depends" || fail "the .deb does not depend on $package"
    done
fi

# --- Whether it starts from there, whatever the current folder
cd /
export HOME=$work/home QT_QPA_PLATFORM=offscreen
mkdir "$HOME"
"$folder/kelvar" 2>"$work/errors" &
program=$!
sleep 2
kill "$program" 2>/dev/null || fail "the program has ended by itself: $(cat "$work/errors")"
wait "$program" 2>/dev/null || true
program=
! grep 'run-time error' "$work/errors" || fail "the program reports an error"

# --- Whether the menu finds it
XDG_DATA_HOME=$work/data "$folder/add-to-menu.sh" >/dev/null
entry=$work/data/applications/$id.desktop
value() { sed -n "s/^$1=//p" "$entry" | sed 's/\\\\/\\/g'; }
# What Exec quotes, a shell quotes alike.
eval "set -- $(value Exec)"
[ $# -eq 2 ] && [ "$1" = "$folder/kelvar" ] && [ -x "$1" ] && [ "$2" = %f ] || fail "the menu would start $*"
[ "$(value Path)" = "$folder" ] || fail "the menu would start it in $(value Path)"
[ -s "$(value Icon)" ] || fail "the menu has no icon"
[ "$(value MimeType)" = 'application/x-kelvar;' ] || fail "the menu's entry opens $(value MimeType)"
[ -s "$work/data/icons/hicolor/scalable/mimetypes/application-x-kelvar.svg" ] || fail "files have no icon"
if command -v update-mime-database >/dev/null; then
    grep -q ':application/x-kelvar:\*.kelvar$' "$work/data/mime/globs2" || fail "the desktop does not know the type"
fi
mv "$folder" "$place/100%"
! XDG_DATA_HOME=$work/none "$place/100%/add-to-menu.sh" 2>/dev/null || fail "it writes an entry that no menu starts"
[ ! -e "$work/none" ] || fail "a refused entry leaves something behind"

# --- The .deb: who starts it gets a folder, which later versions leave as it is where it was edited
command -v dpkg-deb >/dev/null || exit 0
root=$work/root
dpkg-deb -x "$work"/kelvar_*.deb "$root"
for file in applications/$id.desktop icons/hicolor/scalable/{apps/$id,mimetypes/application-x-kelvar}.svg \
    {metainfo/$id.metainfo,mime/packages/$id}.xml doc/kelvar/{copyright,changelog.gz} man/man1/kelvar.1.gz; do
    [ -s "$root/usr/share/$file" ] || fail "$file is missing or empty in the .deb"
done
version=$(dpkg-deb -f "$work"/kelvar_*.deb Version)
zgrep -q "^kelvar ($version) " "$root/usr/share/doc/kelvar/changelog.gz" || fail "the changelog lacks $version"
grep -q "<release version=\"$version\" " "$root/usr/share/metainfo/$id.metainfo.xml" || fail "no release is $version"
find "$root" -name '*.xml' -exec python3 -c 'import sys, xml.dom.minidom as xml; [*map(xml.parse, sys.argv[1:])]' {} + ||
    fail "one of the .xml files is none"
writable=$(find "$root" ! -type l -perm /022)
[ -z "$writable" ] || fail "everybody may write to $writable"

installed=$root/usr/lib/kelvar
launcher=$root/usr/bin/kelvar
export XDG_DATA_HOME="$work/Alice's data"
own=$XDG_DATA_HOME/kelvar
# Until the program has opened the database of the user.
open_program() {
    "$launcher" 2>"$work/errors" &
    program=$!
    for _ in $(seq 100); do
        [ -z "$(find "/proc/$program/fd" -lname "$own/vestoraq.mdb" 2>/dev/null)" ] || return 0
        sleep 0.1
    done
    fail "the program has not opened the database of its user: $(cat "$work/errors")"
}
end_program() {
    kill "$program"
    wait "$program" 2>/dev/null || true
    program=
}

# Others who may write there have put links where new files would be made.
mkdir -p "$own/.installed"
: >"$work/planted"
for file in vestoraq.mdb yearly.rpt .installed/yearly.rpt; do
    ln -s "$work/planted" "$own/$file.new"
done
# A version before lay elsewhere; what is installed can be read only.
mkdir "$work/older"
ln -s "$work/older" "$own/vestoraq.hlp"
chmod a-w "$installed"/*.rpt
open_program
chmod u+w "$installed"/*.rpt
for file in vestoraq.hlp "${reports[@]}"; do
    cmp "$installed/$file" "$own/$file" || fail "$file of the user is not the one installed"
done
[ ! -s "$work/planted" ] || fail "something is written through a planted link"
[ "$(stat -c %a "$own/periodic.rpt")" = 600 ] || fail "its user cannot edit a template"
[ "$(stat -c %a "$own" "$own/vestoraq.mdb" | tr '\n' ' ')" = '700 600 ' ] || fail "others may read the database"
! "$launcher" 2>"$work/errors" || fail "a second program opens"
grep -q 'already open' "$work/errors" || fail "the second program only says $(cat "$work/errors")"
end_program

sqlite3 "$own/vestoraq.mdb" "UPDATE distrib SET dtitle = 'of the user'"
echo '<!-- of the office -->' >>"$own/periodic.rpt"
rm "$own/lumpsum.rpt"
for file in periodic.rpt yearly.rpt new.rpt vestoraq.hlp; do
    echo '<!-- of the next version -->' >>"$installed/$file"
done
open_program
end_program
[ "$(tail -n 1 "$own/periodic.rpt")" = '<!-- of the office -->' ] || fail "an edited template is not kept"
for file in yearly.rpt lumpsum.rpt new.rpt vestoraq.hlp; do
    cmp "$installed/$file" "$own/$file" || fail "$file is not that of the next version"
done
[ "$(sqlite3 "$own/vestoraq.mdb" 'SELECT dtitle FROM distrib')" = 'of the user' ] || fail "the database is not kept"

rm -r "$XDG_DATA_HOME"
: >"$XDG_DATA_HOME"  # where no folder can be made
! "$launcher" 2>"$work/errors" || fail "it starts without a folder"
grep -qF "$own/vestoraq.mdb" "$work/errors" || fail "without a folder it only says $(cat "$work/errors")"

# --- The launcher alone: killed after each of its steps, while one version follows the other
launcher=$work/steps/usr/bin/kelvar
installed=$work/steps/usr/lib/kelvar
mkdir -p "$installed" "$work/steps/usr/bin" "$work/tools"
cp "$root/usr/bin/kelvar" "$launcher"
printf '%s\n' '#!/bin/sh' "printf '%s\n' \"\$@\" >\"$work/given\"" >"$installed/kelvar"
chmod +x "$installed/kelvar"
: >"$installed/vestoraq.mdb"
for tool in cp mv; do
    printf '%s\n' '#!/bin/sh' "/bin/$tool \"\$@\"; echo >>\"$work/taken\"" \
        "[ \$(wc -l <\"$work/taken\") -ne \"\$LAST_STEP\" ] || kill -9 \$PPID" >"$work/tools/$tool"
done
printf '%s\n' '#!/bin/sh' "echo 'user:x:1:1::$work/home of user:/bin/sh'" >"$work/tools/getent"
chmod +x "$work"/tools/*
for step in $(seq 8); do
    export XDG_DATA_HOME=$work/after$step
    for version in 1 2 3; do
        echo "$version" >"$installed/yearly.rpt"
        rm -f "$work/taken"
        LAST_STEP=$((version < 3 ? step : 0)) PATH=$work/tools:$PATH "$launcher" 2>/dev/null || true
    done
    cmp "$installed/yearly.rpt" "$XDG_DATA_HOME/kelvar/yearly.rpt" || fail "killed after step $step, it follows no more"
done
for file in vestoraq.mdb yearly.rpt; do
    ln -sf "$work/not mounted" "$XDG_DATA_HOME/kelvar/$file"
    "$launcher"
    [ -L "$XDG_DATA_HOME/kelvar/$file" ] || fail "a link to what is not mounted is replaced"
done
env -u HOME -u XDG_DATA_HOME LAST_STEP=0 PATH="$work/tools:$PATH" "$launcher"
[ -s "$work/home of user/.local/share/kelvar/yearly.rpt" ] || fail "without HOME it finds no folder"

# --- Whatever the name of a participant's file, the program is told where it is
export XDG_DATA_HOME=$work/data
cd "$work/home of user"
for file in "Ann's  \$5.kelvar" -style.kelvar "$PWD/Ann.kelvar"; do
    "$launcher" "$file"
    [ "$(cat "$work/given")" = "$XDG_DATA_HOME/kelvar/"$'\n'"$PWD/${file##*/}" ] ||
        fail "told to open $file, the program is given $(cat "$work/given")"
done

# --- Statements from the .deb, with what the office's own folder holds
printf 'name,birth date,balance,first payment,method\nAnn,%s,90000,%s,lump sum\n' \
    01/31/1970 "$(date -d '+2 months' +%m/%Y)" > plan.csv
export XDG_DATA_HOME=$work/office
mkdir -p "$XDG_DATA_HOME/kelvar"
echo '<p>{{room}}</p>' > "$XDG_DATA_HOME/kelvar/office.html"
! "$root/usr/bin/kelvar-statements" plan.csv --pdf statements 2> "$work/errors" || fail "nobody reads office.html"
grep -q 'office.html names an unknown field: "room"' "$work/errors" || fail "it only says $(cat "$work/errors")"
echo '<p>Room 12</p>' > "$XDG_DATA_HOME/kelvar/office.html"
"$root/usr/bin/kelvar-statements" plan.csv --pdf statements || fail "no statements: $?"
[ "$(wc -l < results.csv)" = 5 ] || fail "the results are $(cat results.csv)"
[ -s "statements/Ann (line 2).pdf" ] || fail "there is no statement"
