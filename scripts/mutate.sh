#!/usr/bin/env bash
# Puts realistic one-line bugs into a copy of the tree, one at a time, and checks that the tests
# of the bug's layer fail. Not part of the test run: it costs a rebuild of one file and one layer's
# tests per mutant.
#
# Usage: scripts/mutate.sh [-n] [-l LIST] [-d DIR] [NAME...]
#   -n       only check that every mutant's original text is in the tree; builds nothing
#   -l LIST  the mutant list (default scripts/mutants.txt)
#   -d DIR   where the copy and its build live (default a new temporary folder, removed at the
#            end); an existing DIR is refreshed from the tree and its build is reused
#   NAME     run only the mutants of these names
#
# The list holds one mutant a line, five fields separated by tabs:
#   file <TAB> original text <TAB> replacement <TAB> layer <TAB> name
# The original text must occur exactly once in the file; the layer names the test executable
# (<layer>_tests) whose cases (<layer>.<suite>.<test> in CTest) must catch the mutant. Blank
# lines and lines starting with # are skipped.
#
# Each mutant ends as KILLED (its layer's tests fail), SURVIVED (they pass), STALE (the original
# text is not in the file exactly once, so the list needs updating), NOBUILD (the mutated tree
# does not compile, so the mutant proves nothing) or BROKEN (the layer's tests fail even without
# the mutant). Exits non-zero unless every mutant is KILLED.
set -uo pipefail
shopt -u patsub_replacement 2>/dev/null || true

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
list="$top/scripts/mutants.txt"
work=""
check_only=0
while getopts "l:d:nh" option; do
    case "$option" in
        l) list=$OPTARG ;;
        d) work=$OPTARG ;;
        n) check_only=1 ;;
        *) awk 'NR > 1 && /^#/ { sub(/^# ?/, ""); print; next } NR > 1 { exit }' "$0"; exit 2 ;;
    esac
done
shift $((OPTIND - 1))
wanted=("$@")
[ -r "$list" ] || { echo "mutate.sh: cannot read the list '$list'" >&2; exit 2; }

keep=1
if [ -z "$work" ]; then
    work=$(mktemp -d "${TMPDIR:-/tmp}/paneltune-mutants.XXXXXX")
    keep=0
fi
copy="$work/tree"
build="$copy/build"
log="$work/log"
mkdir -p "$copy" "$log"
cleanup() { [ "$keep" = 1 ] || rm -rf "$work"; }
trap cleanup EXIT

# The tree as it is in the worktree, edits not yet committed included. Only files whose content
# differs are copied, so that a reused build rebuilds no more than what changed.
[ "$check_only" = 1 ] && copy=$top
if [ "$copy" = "$top" ]; then
    :
elif [ ! -e "$copy/CMakeLists.txt" ]; then
    (cd "$top" && git ls-files -z --cached --others --exclude-standard |
        xargs -0 -r tar -cf - --ignore-failed-read --) | tar -xf - -C "$copy"
else
    (cd "$top" && git ls-files -z --cached --others --exclude-standard) |
        while IFS= read -r -d '' path; do
            [ -f "$top/$path" ] || continue
            cmp -s "$top/$path" "$copy/$path" && continue
            mkdir -p "$(dirname "$copy/$path")"
            cp "$top/$path" "$copy/$path"
        done
fi

# The copy builds as the project does, with ccache when the machine has it.
if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER:-}" ] && command -v ccache >/dev/null 2>&1; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

# Splits a line on tabs, keeping empty fields (read would merge neighbouring tabs).
fields=()
split_tabs() {
    local rest=$1
    fields=()
    while [[ $rest == *$'\t'* ]]; do
        fields+=("${rest%%$'\t'*}")
        rest=${rest#*$'\t'}
    done
    fields+=("$rest")
}

# Builds the layer's test executable and runs its cases (<layer>.<suite>.<test>; the checks of a
# whole install are left out); stops at the first failing case. Returns 125 when the build
# fails, else what ctest returns.
run_layer() {
    local layer=$1 out=$2
    bash "$copy/scripts/build.sh" release --target "${layer//\//_}_tests" </dev/null >"$out" 2>&1 ||
        return 125
    ctest --test-dir "$build" -R "^${layer//\//_}\.[^.]+\." --no-tests=error --stop-on-failure \
        --timeout 300 -j 2 </dev/null >>"$out" 2>&1
}

declare -A baseline=()
killed=0
failed=0
line_number=0
while IFS= read -r line || [ -n "$line" ]; do
    line_number=$((line_number + 1))
    [[ -z ${line//[[:space:]]/} || $line == \#* ]] && continue
    split_tabs "$line"
    if [ "${#fields[@]}" -ne 5 ]; then
        echo "STALE     line $line_number: ${#fields[@]} fields instead of 5"
        failed=$((failed + 1))
        continue
    fi
    file=${fields[0]} original=${fields[1]} replacement=${fields[2]} layer=${fields[3]}
    name=${fields[4]}
    if [ "${#wanted[@]}" -gt 0 ] && [[ " ${wanted[*]} " != *" $name "* ]]; then
        continue
    fi
    target="$copy/$file"
    content=""
    [ -f "$target" ] && IFS= read -r -d '' content <"$target"
    stripped=${content//"$original"/}
    occurrences=0
    [ -n "$original" ] && occurrences=$(((${#content} - ${#stripped}) / ${#original}))
    if [ "$occurrences" -ne 1 ]; then
        echo "STALE     $name: '$original' occurs $occurrences times in $file"
        failed=$((failed + 1))
        continue
    fi

    if [ "$check_only" = 1 ]; then
        killed=$((killed + 1))
        continue
    fi

    # The unmutated layer must pass, or every mutant of it would look killed.
    if [ -z "${baseline[$layer]:-}" ]; then
        if run_layer "$layer" "$log/baseline-${layer//\//_}.txt"; then
            baseline[$layer]=pass
        else
            baseline[$layer]=fail
            echo "mutate.sh: the unmutated $layer tests fail," \
                "see $log/baseline-${layer//\//_}.txt" >&2
        fi
    fi
    if [ "${baseline[$layer]}" != pass ]; then
        echo "BROKEN    $name: the $layer tests fail or do not build without the mutant"
        failed=$((failed + 1))
        continue
    fi

    printf '%s' "${content/"$original"/"$replacement"}" >"$target"
    run_layer "$layer" "$log/$name.txt"
    status=$?
    printf '%s' "$content" >"$target"
    case "$status" in
        0) echo "SURVIVED  $name ($file)"; failed=$((failed + 1)) ;;
        125) echo "NOBUILD   $name: the mutated tree does not compile, see $log/$name.txt"
           failed=$((failed + 1)) ;;
        *) echo "KILLED    $name"; killed=$((killed + 1)) ;;
    esac
done <"$list"

if [ "$check_only" = 1 ]; then
    echo "mutate.sh: $killed mutants found in the tree, $failed stale"
else
    echo "mutate.sh: $killed killed, $failed survived, stale, unbuildable or broken"
fi
[ "$keep" = 0 ] || echo "mutate.sh: logs in $log"
[ "$failed" -eq 0 ] && [ "$killed" -gt 0 ]
