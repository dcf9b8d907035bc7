#!/bin/bash
# check_format.sh: every source stands as .clang-format has it. "clang-format -i FILE" mends one.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -z --cached --others --exclude-standard '*.cpp' '*.h' \
    | while IFS= read -r -d '' file; do [ ! -f "$file" ] || printf '%s\0' "$file"; done \
    | xargs -0 -P "$(nproc)" -n 20 clang-format --dry-run -Werror
