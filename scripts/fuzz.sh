#!/usr/bin/env bash
# Searches for inputs that break something. Builds the targets of fuzz/ with clang and runs each for its share of
# MINUTES, as many at a time as there are processors, from the kept corpus and games at random on. What has been found
# stays in build/fuzz/findings/, and the search goes on from where it was the next time. Ends non-zero with a finding.
#   scripts/fuzz.sh MINUTES [TARGET]   one target alone, of those in fuzz/CMakeLists.txt
#   scripts/fuzz.sh KEEP               makes what the searches have reached the kept corpus, fuzz/corpus/
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/packages.sh

targets=(three_in_row naval mini_strategy strategy chess position_line standard_fen leading_number fleet army configuration)
case "${1:-}" in KEEP | [1-9]*) ;; *) sed -n '5,6s/^# *//p' "$0" >&2 && exit 2 ;; esac
[ $# -lt 2 ] || targets=("$2")

install_missing "${build_packages[@]}" "${fuzz_packages[@]}"
cmake --preset fuzz >/dev/null
cmake --build build/fuzz -- --quiet
cd build/fuzz
mkdir -p findings logs
bin/fuzz_seeds seeds 2>logs/seeds
grep --only-matching 'u"[^"]*"' ../../net/message_tokens.h | sed 's/^u//' | sort --unique >tokens.dict

# Files are written in memory, and what the program itself tells of a malformed message is not shown.
TMPDIR=$(mktemp --directory --tmpdir=/dev/shm brontavia-fuzz-XXXXXX)
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT
export FUZZ_OPTIONS="-close_fd_mask=2 -detect_leaks=0 -timeout=10 -max_len=256 -len_control=0 -entropic=0"

if [ "$1" = KEEP ]; then
  for target in "${targets[@]}"; do
    kept=../../fuzz/corpus/$target
    mkdir -p "corpus/$target" "seeds/$target" "$kept"
    # Counters would keep an input for each number of times that a line runs.
    # shellcheck disable=SC2086  # options
    bin/fuzz_"$target" $FUZZ_OPTIONS -use_counters=0 -set_cover_merge=1 "$TMPDIR" "corpus/$target" "seeds/$target" "$kept" \
      >"logs/$target" 2>&1
    rm -rf "$kept"
    mkdir -p "$kept"
    find "$TMPDIR" -type f -exec mv -t "$kept" {} +
    echo "$target: $(find "$kept" -type f | wc -l) inputs, $(cat "$kept"/* | wc -c) bytes"
  done
  exit
fi

search() {
  local target=$1 seconds=$2 outcome=0
  mkdir -p "corpus/$target" "seeds/$target" "../../fuzz/corpus/$target"
  # shellcheck disable=SC2086  # options
  bin/fuzz_"$target" $FUZZ_OPTIONS -max_total_time="$seconds" -print_final_stats=1 -dict=tokens.dict \
    -artifact_prefix="findings/$target-" "corpus/$target" "../../fuzz/corpus/$target" "seeds/$target" \
    >"logs/$target" 2>&1 || outcome=$?
  local finding
  finding=$(sed -n 's/.*Test unit written to //p' "logs/$target")
  printf '%-15s %10s executions %7s a second %6s new inputs  %s\n' "$target" \
    "$(sed -n 's/^stat::number_of_executed_units: *//p' "logs/$target")" \
    "$(sed -n 's/^stat::average_exec_per_sec: *//p' "logs/$target")" \
    "$(sed -n 's/^stat::new_units_added: *//p' "logs/$target")" \
    "${finding:+broken: build/fuzz/bin/fuzz_replay $target build/fuzz/$finding}"
  [ "$outcome" -eq 0 ] || [ -n "$finding" ] || tail "logs/$target"
  return "$outcome"
}
export -f search

processors=${JOBS:-$(nproc)}
seconds=$((${1} * 60 * processors / ${#targets[@]}))
[ ${#targets[@]} -gt 1 ] || seconds=$((${1} * 60))
printf '%s\n' "${targets[@]}" | xargs --max-procs="$processors" -I TARGET bash -c "search TARGET $seconds"
