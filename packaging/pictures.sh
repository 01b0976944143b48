#!/usr/bin/env bash
# Draws the pictures of the documentation, docs/pictures/*.png, with the programs of a finished build: pictures.sh BUILD_DIR
# They show the sample project; the machine needs no display.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
programs=${1:-build/run}/bin
project=$programs/INI/ZOPCSRV.ini
pictures=docs/pictures
mkdir -p "$pictures"

draw() {  # NAME OPTIONS...
  "$programs/tavrin-picture" --project "$project" "${@:2}" "$pictures/$1.png"
  echo "$pictures/$1.png"
}

device='#1#3#1'
draw device --node "$device"
draw device-german --node "$device" --language de
draw device-dark --node "$device" --dark
draw network --node '#1#3'
project=samples/faulty/ZOPCSRV.ini
draw warnings --warnings 2>/dev/null
for scene in online reconfig settle test; do
  "$programs/tavrin-picture" --manual "$pictures" --scene "$scene"
  echo "$pictures/$scene.png"
done
