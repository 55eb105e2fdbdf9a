#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs every fuzz target for SECONDS each, JOBS at a time, starting from seeds taken from the
# sample data when it has been built. Inputs that crash, hang or allocate too much are kept in
# BUILD/findings/<target>/; each run's log is BUILD/logs/<target>.log.
#   fuzz/run.sh BUILD SECONDS JOBS SAMPLE [TARGET...]   (default: every target)
set -euo pipefail
build=${1:-build-fuzz}
seconds=${2:-30}
jobs=${3:-1}
sample=${4:-build/sample}
targets=(page draw object_classes column_lists rulerships number_lists settings clipboard)
if [ $# -gt 4 ]; then targets=("${@:5}"); fi

seed() {
    local target=$1
    shift
    mkdir -p "$build/corpus/$target"
    for f in "$@"; do
        if [ -f "$f" ]; then cp "$f" "$build/corpus/$target/"; fi
    done
}
seed page "$sample/User Files/Pages/"*.pag
seed object_classes "$sample/System/objects.dfn"
# The drawing target's input: a count of class records, the records, then the page.
mkdir -p "$build/corpus/draw"
for f in "$sample/User Files/Pages/"*.pag; do
    [ -f "$f" ] || continue
    { printf '\007'; head -c $((7 * 219)) "$sample/System/objects.dfn"; cat "$f"; } \
        > "$build/corpus/draw/$(basename "$f" .pag).in"
done
seed column_lists "$sample/System/plist.dfn" "$sample/System/Alist.dfn"
seed rulerships "$sample/System/rulers2.fil"
seed number_lists "$sample/System/"{astr,part,star,ring}list.dfn
# Section and key, each ended by a backslash and one more character, then the file.
seed settings
printf '%s\r\n' 'Veltrane\;SystemDataPath\;[Veltrane]' 'SystemDataPath="C:\Data"' \
    '[Page Browser]' 'Width=800' > "$build/corpus/settings/seed.ini"
# Objects on the clipboard: the signature, a count of 1 and a page's first object record.
mkdir -p "$build/corpus/clipboard"
for f in "$sample/User Files/Pages/"*.pag; do
    [ -f "$f" ] || continue
    { printf 'PaginoxObjects1\n\001\000'; tail -c +$((349 + 34 + 1)) "$f" | head -c 1605; } \
        > "$build/corpus/clipboard/$(basename "$f" .pag).in"
done
# The readers work on files: in memory they are written and read much faster.
if [ -d /dev/shm ] && [ -w /dev/shm ]; then export TMPDIR=/dev/shm; fi

mkdir -p "$build/logs"
run() {
    local target=$1
    mkdir -p "$build/findings/$target"
    # A single input may take 10 s and 256 MB at most: more is a hang or a runaway allocation.
    nice -n 10 "$build/fuzz_$target" -max_total_time="$seconds" -timeout=10 \
        -malloc_limit_mb=256 -rss_limit_mb=1024 -print_final_stats=1 \
        -artifact_prefix="$build/findings/$target/" "$build/corpus/$target" \
        > "$build/logs/$target.log" 2>&1 || true
    local runs
    runs=$(grep -o 'stat::number_of_executed_units: *[0-9]*' "$build/logs/$target.log" |
        grep -o '[0-9]*$' || echo 0)
    local found
    found=$(find "$build/findings/$target" -type f | wc -l)
    echo "fuzz_$target: $runs executions, $found findings"
}
export -f run
export build seconds
printf '%s\n' "${targets[@]}" | xargs -P "$jobs" -I{} bash -c 'run {}'
# Any finding fails the run.
[ -z "$(find "$build/findings" -type f)" ]
