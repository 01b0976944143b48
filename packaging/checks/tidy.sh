#!/usr/bin/env bash
# clang-tidy (.clang-tidy) over the sources of src/ that a finished build has compiled: tidy.sh BUILD_DIR
# A source that passed is looked at again only when something has changed of what its result depends on: the source and
# all headers that it includes, its compiler command, the rules, clang-tidy itself.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.."
export BUILD_DIR=$1 CACHE_DIR=build/tidy-cache SOURCES=$PWD/src/
mkdir -p "$CACHE_DIR"

rules=$(clang-tidy --version; cat .clang-tidy)

list_objects() {  # OBJECT, a tab and SOURCE a line; Ninja keeps of each object what it was made of
  ninja -C "$BUILD_DIR" -t deps | awk '
    /^[^ ].*: #deps/ { object = $0; sub(/: #deps.*/, "", object); first = 1; next }
    /^    .*\.cpp$/ && first { first = 0; if (index($0, ENVIRON["SOURCES"]) == 5) print object "\t" substr($0, 5) }'
}

key_of() {  # OBJECT COMMAND: the digest of all that the result depends on
  {
    printf '%s\n' "$rules" "$2"
    cd -- "$BUILD_DIR"
    ninja -t deps "$1" | sed -n 's/^    //p' | xargs -d '\n' sha256sum
  } | sha256sum | cut -d ' ' -f 1
}

list_unseen() {  # KEY and SOURCE, each ended by NUL, of what has to be looked at
  local object source command key all=0 unseen=0
  while IFS=$'\t' read -r object source; do
    command=$(grep -F -- " -o $object " "$BUILD_DIR/compile_commands.json") || continue  # no longer part of the build
    ((++all))
    key=$(key_of "$object" "$command")
    if [[ -e $CACHE_DIR/$key ]]; then
      touch "$CACHE_DIR/$key"
    else
      ((++unseen))
      printf '%s\0%s\0' "$key" "$source"
    fi
  done < <(list_objects)
  echo "-- $all sources, $unseen of them new or changed" >&2
  ((all > 0))
}

tidy_one() {  # KEY SOURCE
  local output start=$SECONDS
  if output=$(clang-tidy --quiet -p "$BUILD_DIR" "$2" 2>&1); then
    touch "$CACHE_DIR/$1"
    echo "-- ${2#"$SOURCES"}: $((SECONDS - start)) s"
  else
    printf -- '-- %s: FAILED\n%s\n' "${2#"$SOURCES"}" "$output"
    return 1
  fi
}
export -f tidy_one

find "$CACHE_DIR" -type f -mtime +30 -delete
# shellcheck disable=SC2016  # the shell of xargs expands it
list_unseen | xargs -0 --no-run-if-empty -n 2 -P "$(nproc)" bash -c 'set -euo pipefail; tidy_one "$1" "$2"' bash
