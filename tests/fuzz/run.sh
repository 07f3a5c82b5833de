#!/usr/bin/env bash
# Runs every fuzzing program: tests/fuzz/run.sh [seconds each, 20 by default] [program...]
# Builds them first (preset "fuzz"; KIV_FUZZ_BUILD=off takes them as they are). What they learn stays under
# <build>/fuzz/corpus; an input that breaks something is left in <build>/fuzz/found and the script fails.
# KIV_MOTION_LIBRARY names a folder of motion files to start from, besides the seeds kept here.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/../.."
seconds=${1:-20}
shift || true
programs=("$@")
[ ${#programs[@]} -gt 0 ] || programs=(motiondocument humanoidprofile jointnaming loadcommand commandsequence framedata)

if ! command -v clang++-14 > /dev/null; then
    echo "skipped: clang++-14 is not installed (packages clang-14 and libclang-rt-14-dev)"
    exit 77
fi
build=build/fuzz
if [ "${KIV_FUZZ_BUILD:-on}" != off ]; then
    cmake --preset fuzz > /dev/null
    cmake --build --preset fuzz
fi
sanitizers=$PWD/tests/sanitizers
export ASAN_OPTIONS=detect_stack_use_after_return=0
export LSAN_OPTIONS=suppressions=$sanitizers/leaks.supp:print_suppressions=0
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1

library=${KIV_MOTION_LIBRARY:-../shared/bvh}
small_motions=$build/fuzz/small-motions
mkdir -p "$small_motions" "$build/fuzz/found"
if [ -d "$library" ]; then
    # Large files only slow mutation down.
    find -L "$library" -name '*.bvh' -size -24k -exec cp -t "$small_motions" {} +
fi
# A dialect table stands before a motion, parted from it by a byte of 1.
tables=$build/fuzz/tables
mkdir -p "$tables"
for table in host/KivReader/profiles/*; do
    { cat "$table"; printf '\001'; cat tests/fuzz/seeds/motion/props.bvh; } > "$tables/$(basename "$table")"
done

status=0
printf '%-16s %12s %9s %9s %9s %7s\n' program executions 'per s' edges features seconds
for program in "${programs[@]}"; do
    corpus=$build/fuzz/corpus/$program
    mkdir -p "$corpus"
    seeds=("$corpus")
    limit=4096
    further=()
    case $program in
        motiondocument | humanoidprofile | loadcommand)
            seeds+=(tests/fuzz/seeds/motion "$small_motions")
            limit=16384
            [ "$program" = humanoidprofile ] && seeds+=("$tables")
            ;;
        commandsequence)
            limit=512  # each byte may load an actor
            # Keeping the books of rare features costs more than a run that reaches so many of them.
            further=(-entropic=0)
            ;;
    esac
    log=$build/fuzz/$program.log
    start=$(date +%s)
    "$build/fuzz/${program}_fuzzer" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 \
        -max_len="$limit" -dict=tests/fuzz/seeds/motion.dict -print_final_stats=1 "${further[@]}" \
        -artifact_prefix="$build/fuzz/found/$program-" "${seeds[@]}" > "$log" 2>&1 || status=1
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
    edges=$(sed -n 's/.* cov: \([0-9]*\) .*/\1/p' "$log" | tail -n 1)
    features=$(sed -n 's/.* ft: \([0-9]*\) .*/\1/p' "$log" | tail -n 1)
    printf '%-16s %12s %9s %9s %9s %7s\n' "$program" "${runs:-?}" "${rate:-?}" "${edges:-?}" \
        "${features:-?}" "$(($(date +%s) - start))"
    if grep -qE '^(==[0-9]+==ERROR|SUMMARY:)' "$log"; then
        echo "  found: $(grep -m1 -E '^SUMMARY:' "$log" || grep -m1 'ERROR' "$log"); see $log"
        status=1
    fi
done
exit $status
