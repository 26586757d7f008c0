#!/usr/bin/env bash
# check-includes.sh ROOT: does every file under ROOT/src include only what its folder may look at?
# Prints each slip as file:line and fails when there is one.
set -euo pipefail

root=${1:?"usage: check-includes.sh ROOT"}
cd "$root/src"

# Which folders a folder may include, itself always. The screens (nav and its siblings) do not know each other:
# what they share lies below them. The forms of a screen may also use platform/qt.
awk '
BEGIN {
    allowed["base"] = ""
    allowed["platform"] = "base"
    allowed["geo"] = ""
    allowed["store"] = "base"
    allowed["common"] = "base platform geo store"
    allowed["gps"] = "base platform geo store common"
    allowed["map"] = "base platform geo store common gps"
    screen = "base platform geo store common gps map"
    allowed["nav"] = allowed["planning"] = allowed["flightplan"] = allowed["calibration"] = allowed["tracks"] = screen
    allowed["settings"] = screen
    allowed["app"] = screen " platform/qt nav planning flightplan calibration tracks settings"
    allowed["platform/qt"] = "platform base store common"
}
function slip(text) { print FILENAME ":" FNR ": " text; slips++ }
function holds(list, item) { return index(" " list " ", " " item " ") > 0 }

FNR == 1 {
    file = FILENAME
    sub(/^\.\//, "", file)
    folder = file
    sub(/\/[^\/]*$/, "", folder)
    while (!(folder in allowed) && sub(/\/[^\/]*$/, "", folder)) {}
    name = file
    sub(/.*\//, "", name)
    form = name ~ /^frm/
    mayUseQt = form || folder == "app" || folder == "platform/qt"
    if (!(folder in allowed)) slip("a folder without a place in the order")
}
!/^[ \t]*#[ \t]*include/ { next }
{
    target = $0
    sub(/^[ \t]*#[ \t]*include[ \t]*/, "", target)
    isQt = target ~ /^<(Q[A-Z]|Qt[A-Z]|private\/q)/ || target ~ /^"Q[A-Z]/
    if (isQt && !mayUseQt) slip("Qt below the forms: " target)
    if (folder == "geo" && target !~ /^</ && target !~ /^"geo\//) slip("geo uses the standard library only: " target)
    if (target !~ /^"/) next

    sub(/^"/, "", target)
    sub(/".*/, "", target)
    if (target !~ /\//) {
        if (target !~ /^(moc_.*\.cpp|.*\.moc)$/) slip("includes are named from src/ on: " target)
        next
    }
    if (target ~ /\.\./) { slip("includes are named from src/ on: " target); next }
    to = target
    sub(/\/[^\/]*$/, "", to)
    while (!(to in allowed) && sub(/\/[^\/]*$/, "", to)) {}
    if (to == folder || holds(allowed[folder], to)) next
    if (form && to == "platform/qt") next
    slip(folder " must not include " target)
}
END { exit slips > 0 }
' $(find . -type f \( -name "*.h" -o -name "*.cpp" \) | sort)
