#!/usr/bin/env bash
# Compares the reader of version resources with the platform's own functions: compare.sh VERSION_TABLE CORPUS
#   VERSION_TABLE  the program of version_table_main.cpp
#   CORPUS         a folder of further files to compare; of damaged_* there the platform makes nothing that could be told
# The files are the libraries and programs of Debian's Wine packages and those of the corpus. The platform's answers come
# from platform_table.cpp, built here and run under Wine. Ends with 77, which CTest calls skipped, where there is no
# Wine or no compiler for Windows.
set -euo pipefail
table=$(readlink -f -- "$1")
corpus=$(readlink -f -- "$2")
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")"

skip() {
  echo "Skipped: $1"
  exit 77
}

wine=$(command -v wine64 || command -v wine || compgen -G '/usr/lib/wine/wine64' || true)
[[ -n $wine ]] || skip 'there is no Wine (Debian: wine64)'
compiler=$(command -v x86_64-w64-mingw32-g++-posix || command -v x86_64-w64-mingw32-g++ || true)
[[ -n $compiler ]] || skip 'there is no compiler for Windows (Debian: g++-mingw-w64-x86-64-posix)'

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export WINEPREFIX=$work/prefix WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml='
unset DISPLAY WAYLAND_DISPLAY
export LC_ALL=C.UTF-8

# Names with a line end in them would not survive the lists; there are none.
find -L /usr/lib/*/wine/*-windows "$corpus" -type f ! -name 'damaged_*' 2>/dev/null | LC_ALL=C sort >"$work/files"
[[ -s $work/files ]] || skip 'there are no files to compare'

"$compiler" -std=c++17 -O1 -static -o "$work/platform_table.exe" platform_table.cpp -lversion
"$wine" "$work/platform_table.exe" <"$work/files" >"$work/platform" 2>"$work/wine.log" ||
  { cat "$work/wine.log"; echo 'The platform did not answer.'; exit 1; }
wineserver=$(command -v wineserver || compgen -G '/usr/lib/wine/wineserver64' || true)
[[ -z $wineserver ]] || "$wineserver" -w

"$table" <"$work/files" >"$work/ours"
files=$(wc -l <"$work/files")
answered=$(grep -c '^file ' "$work/platform" || true)
resources=$(grep -c '^available 1' "$work/platform" || true)
echo "$files files, $resources with a version resource."
if ((answered != files || resources == 0)); then
  echo "The platform answered for $answered files only."
  exit 1
fi
if ! diff --text --unified=4 --label platform "$work/platform" --label tavrin "$work/ours"; then
  echo 'The reader and the platform differ.'
  exit 1
fi
echo 'The reader and the platform agree.'
