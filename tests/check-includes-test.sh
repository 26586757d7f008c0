#!/usr/bin/env bash
# check-includes-test.sh ROOT LAYERS: plants slips in a copy of ROOT's sources and expects check-includes.sh to name
# each.
set -euo pipefail

root=${1:?"usage: check-includes-test.sh ROOT LAYERS"}
layers=${2:?"usage: check-includes-test.sh ROOT LAYERS"}
check="$root/tests/check-includes.sh"
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
cp -r "$root/src" "$root/tools" "$copy"

fail() { echo "$1"; exit 1; }

"$check" "$copy" "$layers" || fail "The copy without slips is not clean."

# file | line of code | what the check must say
while IFS='|' read -r file line expected; do
    mkdir -p "$(dirname "$copy/$file")"
    echo "$line" >"$copy/$file"
    if output=$("$check" "$copy" "$layers"); then fail "Passed over: $line in $file"; fi
    [[ $output == *"$file:1: "*"$expected"* ]] || fail "For $line in $file it says: $output"
    rm "$copy/$file"
done <<'SLIPS'
src/base/Slip.h|#include "store/Connection.h"|base must not include store/Connection.h
src/geo/Slip.cpp|#include "base/Numbers.h"|geo must not include base/Numbers.h
src/store/Slip.cpp|#include "common/Variablen.h"|store must not include common/Variablen.h
src/gps/Slip.cpp|  #  include "map/Viewport.h"|gps must not include map/Viewport.h
src/map/Slip.h|#include "gps/GpsLink.h"|map must not include gps/GpsLink.h
src/planning/Slip.cpp|#include "nav/FixState.h"|planning must not include nav/FixState.h
src/nav/Slip.cpp|#include "platform/qt/Screen.h"|nav must not include platform/qt/Screen.h
src/nav/Slip.cpp|#include <QString>|Qt below the forms
src/store/Slip.h|#include <QtCore/QString>|Qt below the forms
src/nav/frmSlip.cpp|#include "planning/frmPlanung.h"|nav must not include planning/frmPlanung.h
src/settings/Slip.cpp|#include "nav/FixState.h"|settings must not include nav/FixState.h
src/platform/Slip.h|#include "platform/qt/Screen.h"|platform must not include platform/qt/Screen.h
src/platform/qt/Slip.cpp|#include "nav/FixState.h"|platform/qt must not include nav/FixState.h
src/nav/Slip.cpp|#include "FixState.h"|named from src/ or tools/ on
src/tracks/Slip.cpp|#include "../app/Hints.h"|named from src/ or tools/ on
tools/receiver/Slip.cpp|#include "common/Settings.h"|receiver must not include common/Settings.h
tools/launch/Slip.cpp|#include <QString>|Qt below the forms
src/newfolder/Slip.cpp|#include <vector>|that no target is made of
SLIPS

(cat "$layers"; echo "store store common") >"$copy/circle"
! "$check" "$copy" "$copy/circle" 2>/dev/null || fail "Passed over: a circle of libraries"
