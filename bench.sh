#!/usr/bin/env bash
# bench.sh: installs what is missing, builds, runs every benchmark beside its peers and writes the tables of results into
# docs/performance.md and docs/measurements/benchmarks.md. Eight minutes on a calm machine; other work on the machine is
# seen in the figures, less in the ratios, and least for root, whose benchmarks go ahead of it.
# bench.sh --gate: counts the instructions of small works and fails where one needs 3 % more than
# benchmarks/instructions.txt says. Under two minutes, and steady on a busy machine; with another compiler or processor
# than the file names it tells and does not judge.
# bench.sh --record: writes that file anew.
#   KIV_BENCH_REPETITIONS  of each benchmark, 9 by default, at least 2
#   KIV_MOTION_LIBRARY     a folder of motions whose real/ holds the long one, ../shared/bvh by default
set -euo pipefail
cd "$(dirname "$(realpath "$0")")"

mode="${1:-}"
if (($# > 1)) || [[ -n "$mode" && "$mode" != --gate && "$mode" != --record ]]; then
    echo "usage: bench.sh [--gate | --record]" >&2
    exit 2
fi
recorded=benchmarks/instructions.txt
results=out/bench
programs="$PWD/build/bench/bin"
mkdir -p "$results"

echo "== Packages"
packaging/install-packages.sh packaging/build-packages.txt packaging/bench-packages.txt
echo "== Build (build/bench)"
cmake --preset bench >/dev/null
wanted=(kivinstructions)
[[ -n "$mode" ]] || wanted+=(kivbenchmarks kivdrawnframes kivframeloop kivplayer)
cmake --build --preset bench --target "${wanted[@]}"

# What a count depends on beside the sources: the C library chooses its routines by the processor.
made_by() { echo "$(g++ --version | head -n 1), $(uname -m), $(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1)"; }

count_instructions() { # One line a work: its instructions, its name.
    local counts="$PWD/$results/counts"
    rm -rf "$counts"
    mkdir -p "$counts"
    # Addresses, environment and locale decide how maps are ordered and strings compared: all three are fixed, the
    # first where the system allows it.
    local fixed=(setarch "$(uname -m)" -R)
    "${fixed[@]}" true 2>/dev/null || fixed=()
    (cd "$counts" && env -i LC_ALL=C HOME=/nonexistent PATH="$PATH" "${fixed[@]}" \
        valgrind --quiet --tool=callgrind --collect-atstart=no --callgrind-out-file=counted "$programs/kivinstructions")
    for file in $(ls "$counts"/counted.* | sort -t . -k 2 -n); do
        awk '/^desc: Trigger/ { sub(/.*Client Request: /, ""); name = $0 } /^totals:/ { print $2 "\t" name }' "$file"
    done >"$results/instructions.txt"
}

echo "== Instructions"
count_instructions
case "$mode" in
--record)
    {
        echo "# Instructions of the works in instructions.cpp, written by bench.sh --record"
        echo "# $(made_by)"
        cat "$results/instructions.txt"
    } >"$recorded"
    echo "$recorded"
    exit
    ;;
--gate)
    code=0
    python3 benchmarks/gate.py "$recorded" "$results/instructions.txt" || code=$?
    if ! grep -qxF "# $(made_by)" "$recorded"; then
        echo "The recorded counts were made by another compiler or processor: told, not judged."
        code=0
    fi
    exit "$code"
    ;;
esac

# Where it is allowed, ahead of all other programs: their share of the processor is not what is measured.
ahead=()
if chrt -r 20 true 2>/dev/null; then
    ahead=(chrt -r 20)
fi
for subject in reading profile dressing commands posing overlays scene scale; do
    echo "== $subject"
    repetitions="${KIV_BENCH_REPETITIONS:-9}"
    # A life of a thousand actors is long enough to say something by itself.
    [[ "$subject" != scale ]] || repetitions=3
    "${ahead[@]}" "$programs/kivbenchmarks" --benchmark_filter="^$subject/" --benchmark_repetitions="$repetitions" \
        --benchmark_min_time=0.1 --benchmark_enable_random_interleaving=true --benchmark_report_aggregates_only=true \
        --benchmark_out="$results/$subject.json" --benchmark_out_format=json >"$results/$subject.log" 2>&1 ||
        { tail "$results/$subject.log" >&2; exit 1; }
done
# By a weight where stalls are looked for: the kernel may stop real-time threads for a twentieth of every second.
early=()
if nice -n -20 true 2>/dev/null; then
    early=(nice -n -20)
fi
echo "== frame loop"
long_motion="${KIV_MOTION_LIBRARY:-../shared/bvh}/real/derived_large_cmu_daz_3x.bvh"
[[ -f "$long_motion" ]] || { echo "no long motion: $long_motion is not there"; long_motion=; }
for ((run = 0; run < 5; ++run)); do
    "${early[@]}" "$programs/kivframeloop" ${long_motion:+"$long_motion"}
done >"$results/frameloop.txt"
echo "== start of the window"
LIBGL_ALWAYS_SOFTWARE=1 LP_NUM_THREADS=0 "${early[@]}" xvfb-run -a -s "-screen 0 1400x900x24 -noreset" \
    python3 -B benchmarks/windowstart.py 5 "$programs/kivplayer" build/bench/root/Data/BVH/walk.bvh \
    >"$results/windowstart.txt"
echo "== drawn frames"
LIBGL_ALWAYS_SOFTWARE=1 LP_NUM_THREADS=0 "${ahead[@]}" "$programs/kivdrawnframes" build/bench/root/Data/BVH/walk.bvh \
    >"$results/drawnframes.txt"
echo "== Tables (docs/performance.md, docs/measurements/benchmarks.md)"
python3 -B benchmarks/maketable.py "$results" build/bench/CMakeCache.txt docs/measurements/benchmarks.md \
    docs/performance.md
