#!/usr/bin/env bash
# Every source must look as clang-format (.clang-format) writes it. With --fix it is made so.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.."

mode=(--dry-run -Werror)
[[ ${1:-} != --fix ]] || mode=(-i)
find src tests bench fuzz -path tests/data -prune -o \( -name '*.h' -o -name '*.cpp' \) -print0 |
  xargs -0 --no-run-if-empty -n 16 -P "$(nproc)" clang-format "${mode[@]}"
