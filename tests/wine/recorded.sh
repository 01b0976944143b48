#!/usr/bin/env bash
# Compares the reader of version resources with answers of the platform that were written down:
# recorded.sh VERSION_TABLE [--record PLATFORM_TABLE]
#   VERSION_TABLE  the program of version_table_main.cpp
#   --record       writes the answers down anew; PLATFORM_TABLE is what compare.sh got from the platform
# The files are libraries of Debian's Wine packages; recorded_files.txt has their sizes and names. Needs no Wine to run.
# Ends with 77, which CTest calls skipped, where the files are not there or of another version.
set -euo pipefail
table=$(readlink -f -- "$1")
record=''
[[ ${2:-} != --record ]] || record=$(readlink -f -- "$3")
cd -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
while read -r size name; do
  file=$(compgen -G "/usr/lib/*/wine/x86_64-windows/$name" | head -n 1 || true)
  if [[ -z $file || $(stat -c %s "$file") != "$size" ]]; then
    echo "Skipped: $name of $size bytes is not here (Debian: libwine 8.0~repack-4)"
    exit 77
  fi
  echo "$file" >>"$work/files"
done <recorded_files.txt

if [[ -n $record ]]; then
  while read -r file; do
    awk -v name="file ${file##*/}" '/^file / { on = $0 == name } on' "$record"
  done <"$work/files" >recorded_answers.txt
fi
LC_ALL=C.UTF-8 "$table" <"$work/files" >"$work/ours"
diff --text --unified=4 recorded_answers.txt "$work/ours"
echo "$(wc -l <"$work/files") files, the reader gives the recorded answers."
