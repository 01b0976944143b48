#!/usr/bin/env bash
# The shell scripts must be valid and free of what shellcheck finds.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.."

scripts=(run test .ci/run packaging/*.sh packaging/checks/*.sh tests/foreign/*.sh tests/wine/*.sh)
for script in "${scripts[@]}"; do
  bash -n "$script"
done
shellcheck "${scripts[@]}"
