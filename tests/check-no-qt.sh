#!/usr/bin/env bash
# check-no-qt.sh LIBRARY...: the libraries below the forms must not refer to Qt.
set -euo pipefail

status=0
for library in "$@"; do
    symbols=$(nm --undefined-only --demangle "$library" 2>/dev/null | grep -E '\b(Q[A-Z][A-Za-z]*::|qt_|operator.*\bQ[A-Z])' | head -3 || true)
    if [[ -n $symbols ]]; then
        echo "$library refers to Qt:"
        echo "$symbols"
        status=1
    fi
done
exit $status
