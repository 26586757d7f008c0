#!/usr/bin/env bash
# check-includes.sh ROOT LAYERS: does every file under ROOT/src and ROOT/tools include only what its target links?
# LAYERS is what cmake/Layers.cmake wrote: lines of a target, its folder and what it links itself. A folder may
# include itself and the folders of those libraries; a form (frm*) those of its folder's library as well.
# Prints each slip as file:line and fails when there is one.
set -euo pipefail

root=${1:?"usage: check-includes.sh ROOT LAYERS"}
layers=$(realpath "${2:?"usage: check-includes.sh ROOT LAYERS"}")
cd "$root"

# A circle of static libraries links; it must not be there all the same.
awk '{ for (i = 3; i <= NF; i++) if ($i !~ /::/) print $1, $i }' "$layers" | tsort >/dev/null

awk '
function slip(text) { print FILENAME ":" FNR ": " text; slips++ }

FILENAME == ARGV[1] {
    folderOf[$1] = $2
    known[$2]
    forms = $1 ~ /_forms$/
    for (i = 3; i <= NF; i++) links[$2, forms, $i]
    next
}
FNR == 1 {
    folder = FILENAME
    sub(/^(src|tools)\//, "", folder)
    form = folder ~ /(^|\/)frm[^\/]*$/
    sub(/\/[^\/]*$/, "", folder)
    if (!(folder in known)) slip("a folder that no target is made of")
    delete mayInclude
    mayUseQt = 0
    for (key in links) {
        split(key, part, SUBSEP)
        if (part[1] != folder || part[2] > form) continue
        if (part[3] in folderOf) mayInclude[folderOf[part[3]]]
        if (part[3] ~ /^Qt6::/ || part[3] == "platform_qt") mayUseQt = 1
    }
}
!/^[ \t]*#[ \t]*include/ { next }
{
    target = $0
    sub(/^[ \t]*#[ \t]*include[ \t]*/, "", target)
    isQt = target ~ /^<(Q[A-Z]|Qt[A-Z]|private\/q)/ || target ~ /^"Q[A-Z]/
    if (isQt && !mayUseQt) slip("Qt below the forms: " target)
    if (target !~ /^"/) next

    sub(/^"/, "", target)
    sub(/".*/, "", target)
    if (target ~ /\.\./ || (target !~ /\// && target !~ /^(moc_.*\.cpp|.*\.moc)$/)) {
        slip("includes are named from src/ or tools/ on: " target)
        next
    }
    to = target
    if (!sub(/\/[^\/]*$/, "", to) || to == folder || to in mayInclude) next
    slip(folder " must not include " target)
}
END { exit slips > 0 }
' "$layers" $(find src tools -type f \( -name "*.h" -o -name "*.cpp" \) | sort)
