#!/usr/bin/env bash
# Fails when a source file includes a layer above its own, or when the engine includes a Qt or
# platform header. The layers, lowest first: core; present (the reporting operations the engines
# write through); the engines (simplify, manipulate, solve, linsys, graph, which call each other
# freely); shell; the front ends (cli, qt). platform/ is the engine's one seam to the operating
# system: its header is standard C++, and only its own .cpp files include system headers.
set -uo pipefail
root="${1:-$(cd "$(dirname "$0")/../.." && pwd)}"
cd "$root" || exit 2

rank() {
  case "$1" in
    core) echo 0 ;;
    present) echo 1 ;;
    simplify | manipulate | solve | linsys | graph) echo 2 ;;
    platform) echo 3 ;;
    shell) echo 3 ;;
    cli | qt) echo 4 ;;
    *) echo 9 ;;
  esac
}

failures=0
checked=0
for layer in core present simplify manipulate solve linsys graph platform shell; do
  [ -d "$layer" ] || continue
  own=$(rank "$layer")
  while IFS= read -r file; do
    checked=$((checked + 1))
    while IFS= read -r line; do
      target=${line#*\"}
      target=${target%%/*}
      if [ "$(rank "$target")" -gt "$own" ]; then
        echo "$file includes a layer above its own: $line"
        failures=$((failures + 1))
      fi
    done < <(grep -E '^#include "[a-z_]+/' "$file")
    case "$file" in
      platform/*.cpp) continue ;;
    esac
    while IFS= read -r line; do
      echo "$file includes a Qt or platform header: $line"
      failures=$((failures + 1))
    done < <(grep -E '^#include <(Q[A-Za-z]*|unistd\.h|fcntl\.h|sys/[a-z_]+\.h|windows\.h|pthread\.h|dlfcn\.h|termios\.h)>' "$file")
  done < <(find "$layer" -name '*.cpp' -o -name '*.h' | sort)
done

echo "$checked files checked, $failures layer faults"
[ "$failures" -eq 0 ]
