#!/usr/bin/env bash
# check-tidy.sh [--changed | FILE...]: clang-tidy over src and tools, over what differs from main, or over these files.
# Needs a built folder, build/dev or $BUILD, for the flags and the generated headers. Fails when there is a finding.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
build=${BUILD:-build/dev}

# The sources among these files; for a header those that include it.
Sources() {
    local file
    for file in "$@"; do
        case $file in
        *.cpp) echo "$file" ;;
        *.h) grep -rlF --include='*.cpp' "\"${file#*/}\"" src tools || true ;;
        esac
    done | sort -u
}

case ${1:-} in
--changed) mapfile -t changed < <(git diff --name-only --diff-filter=d main -- src tools) ;;
"") mapfile -t changed < <(find src tools -name '*.cpp') ;;
*) changed=("$@") ;;
esac

# GCC's own warning flags mean nothing to it. What it says on stderr is how much it left out.
Sources "${changed[@]}" | xargs -r -P "$(nproc)" -n 1 \
    clang-tidy -p "$build" --quiet --extra-arg=-Wno-unknown-warning-option 2>/dev/null
