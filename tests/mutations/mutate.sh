#!/usr/bin/env bash
# mutate.sh [TEXT...]: puts each fault of faults.txt alone into a copy of the sources and says whether the
# tests notice it. With texts only the faults of which the file, the line or the replacement has one.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

list=tests/mutations/faults.txt
work=$PWD/build-mutate
tree=$work/tree # the copy; it stays, so that the next run builds only what has changed
build=$work/build
output=$work/output
time_limit=900 # seconds; a test program that takes longer hangs, and so has noticed something

files=() programs=() filters=() lines=() replacements=() reasons=()

read_list() {
    local text file='' program='' filter='' number=0
    while IFS= read -r text; do
        number=$((number + 1))
        case $text in
            '' | '#'*) ;;
            '['*']'*)
                file=${text%%]*} file=${file#[}
                read -r program filter <<<"${text#*]}"
                ;;
            '- '*)
                files+=("$file") programs+=("$program") filters+=("${filter:-*}")
                lines+=("${text:2}") replacements+=("${text:2}") reasons+=('')
                ;;
            '+'*) replacements[-1]=${text:2} ;;
            '= '*) reasons[-1]=${text:2} ;;
            *) echo "$list:$number: neither a file nor a part of a fault" >&2 && return 1 ;;
        esac
    done <"$list"
}

check_list() {
    local fault found faulty=0
    for fault in "${!files[@]}"; do
        found=$(grep -cF -- "${lines[fault]}" "${files[fault]}") || true
        if [ "$found" != 1 ] || [ "${lines[fault]}" = "${replacements[fault]}" ]; then
            echo "$list: ${files[fault]} has ${found:-no} lines with '${lines[fault]}'" >&2
            faulty=1
        fi
    done
    return $faulty
}

is_wanted() { # FAULT TEXT...
    local all="${files[$1]} ${lines[$1]} ${replacements[$1]}" text
    shift
    for text in "$@"; do
        [[ $all != *"$text"* ]] || return 0
    done
    [ $# -eq 0 ]
}

copy() { # FILE
    cmp -s "$1" "$tree/$1" || { mkdir -p "$tree/$(dirname "$1")" && cp "$1" "$tree/$1"; }
}

copy_sources() {
    local file
    git ls-files --cached --others --exclude-standard | while IFS= read -r file; do
        [ ! -f "$file" ] || copy "$file"
    done
    [ -f "$build/build.ninja" ] || cmake -S "$tree" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
        "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -D_GLIBCXX_ASSERTIONS" -DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST
}

compile() { # PROGRAM
    cmake --build "$build" --target "$1" >"$output" 2>&1
}

passes() { # PROGRAM FILTER
    timeout --kill-after=5 $time_limit "$build/tools/$1" --gtest_brief=1 "--gtest_filter=$2" \
        </dev/null >"$output" 2>&1
}

# The tests that are likely to notice a fault come first, so that the others seldom have to run.
all_pass() { # PROGRAM FILTER
    passes "$1" "$2" && { [ "$2" = '*' ] || passes "$1" '*'; }
}

outcome_of() { # FAULT
    local file=$tree/${files[$1]} text outcome status=0
    text=$(<"$file")
    printf '%s\n' "${text/"${lines[$1]}"/"${replacements[$1]}"}" >"$file"
    if ! compile "${programs[$1]}"; then
        outcome='DOES NOT BUILD'
    else
        all_pass "${programs[$1]}" "${filters[$1]}" || status=$?
        case $status in
            0) outcome=${reasons[$1]:+equivalent} outcome=${outcome:-SURVIVES} ;;
            124 | 137) outcome='noticed, hangs' ;;
            *) outcome=noticed ;;
        esac
        [ "$status" = 0 ] || [ -z "${reasons[$1]}" ] || outcome='NOT EQUIVALENT'
    fi
    copy "${files[$1]}"
    echo "$outcome"
}

if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$work CCACHE_NOHASHDIR=1
fi
read_list
check_list
wanted=()
for fault in "${!files[@]}"; do
    if is_wanted "$fault" "$@"; then
        wanted+=("$fault")
    fi
done
mkdir -p "$tree"
copy_sources
for program in $(for fault in "${wanted[@]}"; do echo "${programs[fault]}"; done | sort -u); do
    if ! compile "$program" || ! passes "$program" '*'; then
        cat "$output"
        echo "$program does not pass without any fault." >&2
        exit 1
    fi
done

declare -A counts=()
for fault in "${wanted[@]}"; do
    outcome=$(outcome_of "$fault")
    counts[$outcome]=$((${counts[$outcome]:-0} + 1))
    printf '%-15s %s: %s => %s%s\n' "$outcome" "${files[fault]}" "${lines[fault]}" \
        "${replacements[fault]}" "${reasons[fault]:+ (${reasons[fault]})}"
done
echo
for outcome in "${!counts[@]}"; do
    printf '%5d %s\n' "${counts[$outcome]}" "$outcome"
done
good=$((${counts[noticed]:-0} + ${counts['noticed, hangs']:-0} + ${counts[equivalent]:-0}))
[ "$good" -eq ${#wanted[@]} ] && [ "$good" -gt 0 ]
