#!/usr/bin/env bash
# Our OPC UA against that of others: tavrin-sim with a client, and tavrinctl with a server, both made with node-opcua.
# Usage: foreign.sh sim|client DIRECTORY_OF_THE_PROGRAMS
# Ends with 77, which means skipped, where node-opcua is not installed. It is looked for where Node.js looks and in
# build/deps; there it gets by: npm install --prefix build/deps node-opcua
set -euo pipefail
here=$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")
export NODE_PATH=$here/../../build/deps/node_modules${NODE_PATH:+:$NODE_PATH}

if ! command -v node >/dev/null || ! node -e 'require.resolve("node-opcua")' 2>/dev/null; then
  echo 'Skipped: Node.js or its module node-opcua is not installed.'
  exit 77
fi

readonly what=$1 programs=$2
work=$(mktemp -d)
started=()
finish() {
  for process in "${started[@]}"; do kill "$process" 2>/dev/null || true; done
  wait
  rm -rf -- "$work"
}
trap finish EXIT
export XDG_CONFIG_HOME=$work/config # where node-opcua keeps its keys

wait_for() { # FILE PATTERN: the first line of the file with the pattern
  for ((i = 0; i < 300; ++i)); do
    if grep -m 1 -- "$2" "$1" 2>/dev/null; then return 0; fi
    sleep 0.1
  done
  echo "no line \"$2\" in:" >&2
  cat "$1" >&2
  return 1
}

case $what in
  sim) # a foreign client with tavrin-sim
    "$programs/tavrin-sim" --port 0 --interval 100 "$here/../../samples/plant/ZOPCSRV.ini" >"$work/sim.log" &
    started+=($!)
    ready=$(wait_for "$work/sim.log" ' items at ')
    node "$here/client.js" "${ready##* }"
    ;;
  client) # tavrinctl with a foreign server
    cp -r -- "$programs/tavrinctl" "$programs/texts" "$work"
    node "$here/server.js" >"$work/server.log" 2>&1 &
    started+=($!)
    ready=$(wait_for "$work/server.log" '^ready ')
    printf '[Servers]\r\n%s=%s\r\n' Zelkar.OPCServer.1 "${ready#ready }" \
      Qorvane.OPCServer.1 "${ready#ready }" >"$work/Tavrin.INI"
    "$work/tavrinctl" watch --json --seconds 3 "$here/../../samples/plant/ZOPCSRV.ini" Labor >"$work/watch.log" || true
    node "$here/check_watch.js" "$work/watch.log"
    ;;
esac
