#!/usr/bin/env bash
# Builds the fuzz targets and runs each on its seed corpus, which is made from the samples.
# Usage: scripts/fuzz.sh [SECONDS]   how long each target runs; 60 without an argument
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}

cmake --preset fuzz
cmake --build build/fuzz
work=build/fuzz/run
mkdir -p "$work"/{esi,ktl-reader,ktl-dump,choices,show-esi,show-ktl,check,diff,retrace,two-roads}
build/fuzz/bin/makeEsiSeeds "$work/esi" samples/*.xml
for sample in samples/*.xml; do
  build/fuzz/bin/ktl convert "$sample" -o "$work/ktl-reader/$(basename "$sample" .xml).ktl" --force
done
rm -f "$work"/ktl-reader/*.txt
cp "$work"/ktl-reader/*.ktl "$work/ktl-dump/"
cp "$work"/ktl-reader/*.ktl "$work/show-ktl/"
cp "$work"/esi/*.xml "$work/show-esi/"
cp "$work"/esi/*.xml "$work"/ktl-reader/*.ktl "$work/check/"
cp "$work"/esi/*.xml "$work/two-roads/"
for esi in fuzz/choosableDevices.xml samples/*.xml; do
  seed=$work/choices/$(basename "$esi" .xml)
  build/fuzz/bin/ktl choices "$esi" > "$seed.json"
  sed 's/^\(      "device": \).*/\11,/' "$seed.json" > "$seed-first.json"
done
cp "$work"/choices/*.json "$work"/ktl-reader/*.ktl "$work/retrace/"
build/fuzz/bin/ktl convert fuzz/choosableDevices.xml -o "$work/retrace/choosableDevices.ktl" --force --no-dump

# Two files: the bytes of the first one's length, the low one first, then one file after the other.
pair() { # FIRST SECOND RESULT
  local size; size=$(stat -c %s "$1")
  if [[ $size -lt 65536 ]]; then
    # shellcheck disable=SC2059 # the format is the two bytes
    { printf "\\x$(printf %02x $((size % 256)))\\x$(printf %02x $((size / 256)))"; cat "$1" "$2"; } > "$3"
  fi
}
previous=
for seed in "$work"/esi/*.xml "$work"/ktl-reader/*.ktl; do
  pair "$seed" "$seed" "$work/diff/$(basename "$seed")-itself"
  [[ -z $previous ]] || pair "$previous" "$seed" "$work/diff/$(basename "$seed")-next"
  previous=$seed
done

run() { # TARGET CORPUS DICTIONARY LONGEST_INPUT
  echo "== $1 for $seconds seconds"
  build/fuzz/bin/"$1" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 -max_len="$4" \
    -print_final_stats=1 -artifact_prefix="$work/$1-" -dict="fuzz/dictionaries/$3" "$work/$2"
}
export QT_QPA_PLATFORM=offscreen
# A leak is looked for by the tests; here it would cost a check per input. So would long records of who allocated what.
export ASAN_OPTIONS=detect_leaks=0:malloc_context_size=4
# The length decides how many inputs there are in a second. In 32 KB there are more items than a read takes; a small ESI
# file has room for every section, and a choices file of 32 KB for every choice of several devices.
run fuzzKtlReader ktl-reader ktl.dict 32768
run fuzzKtlDump ktl-dump ktl.dict 32768
run fuzzEsi esi esi.dict 8192
run fuzzChoices choices choices.dict 32768
run fuzzShowKtl show-ktl ktl.dict 32768
run fuzzShowEsi show-esi esi.dict 8192
run fuzzTwoRoads two-roads esi.dict 8192
run fuzzCheck check esi.dict 8192
run fuzzDiff diff esi.dict 16384
run fuzzRetrace retrace choices.dict 32768
