#!/usr/bin/env bash
# check-includes-test.sh ROOT: plants slips in a copy of ROOT/src and expects check-includes.sh to name each.
set -euo pipefail

root=${1:?"usage: check-includes-test.sh ROOT"}
check="$root/tests/check-includes.sh"
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
mkdir "$copy/src"
cp -r "$root/src/." "$copy/src"

fail() { echo "$1"; exit 1; }

"$check" "$copy" || fail "The copy without slips is not clean."

# file | line of code | what the check must say
while IFS='|' read -r file line expected; do
    mkdir -p "$(dirname "$copy/src/$file")"
    echo "$line" >"$copy/src/$file"
    if output=$("$check" "$copy"); then fail "Passed over: $line in $file"; fi
    [[ $output == *"$file:1: "*"$expected"* ]] || fail "For $line in $file it says: $output"
    rm "$copy/src/$file"
done <<'SLIPS'
base/Slip.h|#include "store/Connection.h"|base must not include store/Connection.h
geo/Slip.cpp|#include "base/Numbers.h"|geo uses the standard library only
store/Slip.cpp|#include "common/Variablen.h"|store must not include common/Variablen.h
gps/Slip.cpp|  #  include "map/Viewport.h"|gps must not include map/Viewport.h
map/Slip.h|#include "nav/FixState.h"|map must not include nav/FixState.h
planning/Slip.cpp|#include "nav/FixState.h"|planning must not include nav/FixState.h
nav/Slip.cpp|#include "platform/qt/Screen.h"|nav must not include platform/qt/Screen.h
nav/Slip.cpp|#include <QString>|Qt below the forms
store/Slip.h|#include <QtCore/QString>|Qt below the forms
nav/frmSlip.cpp|#include "planning/frmPlanung.h"|nav must not include planning/frmPlanung.h
settings/Slip.cpp|#include "nav/FixState.h"|settings must not include nav/FixState.h
platform/Slip.h|#include "platform/qt/Screen.h"|platform must not include platform/qt/Screen.h
platform/qt/Slip.cpp|#include "nav/FixState.h"|platform/qt must not include nav/FixState.h
nav/Slip.cpp|#include "FixState.h"|named from src/ on
tracks/Slip.cpp|#include "../app/Hints.h"|named from src/ on
newfolder/Slip.cpp|#include <vector>|without a place in the order
SLIPS
