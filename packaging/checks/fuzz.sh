#!/usr/bin/env bash
# Runs every fuzz target of a build: fuzz.sh BUILD_DIR corpus|SECONDS
#   corpus   once over its corpus, fuzz/corpus/NAME/
#   SECONDS  for so long on new input that is made from the corpus; the tree stays as it is
# An input that ends a target badly is kept in BUILD_DIR/fuzz-findings/ and shown.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.."
export BUILD_DIR=$1 DURATION=$2
export ASAN_OPTIONS=allow_addr2line=1 UBSAN_OPTIONS=allow_addr2line=1:print_stacktrace=1

show_failure() {  # NAME LOG
  echo "-- $1: FAILED"
  if ! sed -n '/runtime error: \|ERROR: /,/^SUMMARY: /p' "$2" | head -n 60 | grep .; then tail -n 20 "$2"; fi
  local input
  input=$(sed -n 's/.*Test unit written to //p' "$2" | tail -n 1)
  if [[ -n $input ]]; then
    echo "-- The input, $input:"
    od -A d -t x1z "$input" | head -n 40
  fi
}

fuzz_one() {  # NAME
  local name=$1 corpus=fuzz/corpus/$1 work mode
  if [[ -z $(ls -A "$corpus" 2>/dev/null) ]]; then
    echo "-- $name: FAILED, there is nothing in $corpus/"
    return 1
  fi
  work=$(mktemp -d)
  # shellcheck disable=SC2064  # the folder of this call
  trap "rm -rf '$work'" EXIT
  mkdir -p "$work/new" "$BUILD_DIR/fuzz-findings"
  mode=("-max_total_time=$DURATION" "$work/new")
  [[ $DURATION != corpus ]] || mode=(-runs=0)
  if "$BUILD_DIR/bin/${name}_fuzz" -timeout=10 -artifact_prefix="$BUILD_DIR/fuzz-findings/$name-" \
    "${mode[@]}" "$corpus" >"$work/log" 2>&1; then
    echo "-- $name: $(grep -E '^(#[0-9]+.*)?(DONE|Done)' "$work/log" | tail -n 1)"
  else
    show_failure "$name" "$work/log"
    return 1
  fi
}
export -f fuzz_one show_failure

# shellcheck disable=SC2016  # the shell of xargs expands it
find fuzz -maxdepth 1 -name '*_fuzz.cpp' -printf '%f\0' | sed -z 's/_fuzz\.cpp$//' | sort -z |
  xargs -0 --no-run-if-empty -n 1 -P "$(nproc)" bash -c 'set -euo pipefail; fuzz_one "$1"' bash
