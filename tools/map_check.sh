#!/usr/bin/env bash
# Holds the table of rooms in docs/ARCHITECTURE.md against the #include lines under src/, both ways: an include that the
# table does not allow fails, and so does an arrow of the table that no include uses. Besides: every folder with sources
# is a room of the table and the other way round, a room includes only rooms that stand above it in the table (so that
# nothing goes in circles), only windows, platform/qt* and main files include Qt, only the room options includes CLI11, and
# only the sources (.cpp) of platform/posix include what is neither of them nor standard C++: <...h>.
#
# usage: tools/map_check.sh [TREE]    TREE holds docs/ARCHITECTURE.md and src/; without it, this repository
#
# bash and awk, because both are on every Debian; the compiler of the tests need not be there.
set -euo pipefail

tree=${1:-$(dirname "${BASH_SOURCE[0]}")/..}
cd "$tree"

includes() { # FILE:LINE:#include ... of every source, below src/
    (cd src && grep -rnE '^[[:space:]]*#[[:space:]]*include' --include='*.h' --include='*.cpp' --include='*.in' .) |
        sed 's|^\./||'
}

folders() { # every folder below src/ that has sources
    (cd src && find . -mindepth 2 -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.in' \) -printf '%h\n') |
        sed 's|^\./||' | sort -u
}

# shellcheck disable=SC2016 # the $ are awk's
awk '
    function complain(text) { print text; faults++ }

    # The names between backticks in `text`, into list[1..]; gives back how many.
    function names(text, list,    count, part, parts, i) {
        parts = split(text, part, "`")
        for (i = 2; i <= parts; i += 2) list[++count] = part[i]
        return count + 0
    }

    function folderOf(path) { return sub("/[^/]*$", "", path) ? path : "" }

    function mayUseQt(path) {
        return path ~ "/ui/[^/]*$" || path ~ "^platform/qt" || path ~ "/main[A-Za-z]*[.]cpp$"
    }

    function mayUseSystem(path) { return path ~ "^platform/posix/[^/]*[.]cpp$" }

    FNR == 1 { source++ }

    # 1. the table
    source == 1 && /<!-- rooms -->/ { inTable = 1 }
    source == 1 && /<!-- end of rooms -->/ { inTable = 0 }
    source == 1 && inTable && /^\| *`/ {
        split($0, cell, "|")
        delete found
        names(cell[2], found)
        room = found[1]
        place[room] = ++rooms
        order[rooms] = room
        delete found
        for (i = names(cell[3], found); i >= 1; i--) allowed[room, found[i]] = 1
    }

    # 2. the folders
    source == 2 { exists[$0] = 1 }

    # 3. the includes
    source == 3 {
        split($0, at, ":")
        where = "src/" at[1] ":" at[2]
        room = folderOf(at[1])
        if ($0 ~ /include[ \t]*<Q/ && !mayUseQt(at[1]))
            complain(where ": only windows (ui), platform/qt* and main files may include Qt")
        if ($0 ~ /include[ \t]*<[^>]*[.]h>/ && !mayUseSystem(at[1]))
            complain(where ": only the sources of platform/posix may include headers of the system")
        if ($0 ~ /include[ \t]*<CLI\// && room != "options") complain(where ": only the room options may include CLI11")
        if (!match($0, /"[^"]*"/)) next
        target = substr($0, RSTART + 1, RLENGTH - 2)
        if (target ~ /\.moc$/) next
        target = folderOf(target)
        if (target == room) next
        if (!(target in place)) {
            complain(where ": write includes from src/ on, \"room/File.h\", of a room in the table")
            next
        }
        used[room, target] = 1
        if (!((room, target) in allowed) && room in place)
            complain(where ": `" room "` may not include `" target "`")
    }

    END {
        if (!rooms) complain("docs/ARCHITECTURE.md: no table of rooms found")
        for (room in exists)
            if (!(room in place)) complain("src/" room ": this folder is missing in the table of docs/ARCHITECTURE.md")
        for (i = 1; i <= rooms; i++) {
            room = order[i]
            if (!(room in exists)) complain("docs/ARCHITECTURE.md: there is no source in room `" room "`")
            differs = 0
            row = ""
            for (j = 1; j <= rooms; j++) {
                target = order[j]
                isAllowed = (room, target) in allowed
                isUsed = (room, target) in used
                if (isUsed) row = row (row == "" ? "" : ", ") "`" target "`"
                if (isUsed != isAllowed) differs = 1
                if (isAllowed && !isUsed)
                    complain("docs/ARCHITECTURE.md: `" room "` may include `" target "`, but nothing there does")
                if (isAllowed && j >= i)
                    complain("docs/ARCHITECTURE.md: `" room "` may include `" target "`, which does not stand above it")
            }
            if (differs) print "    (today `" room "` includes: " (row == "" ? "nothing" : row) ")"
        }
        if (faults) {
            print faults " fault(s): the map and the house differ"
            exit 1
        }
        print "the map fits: " rooms " rooms"
    }
' docs/ARCHITECTURE.md <(folders) <(includes)
