# shellcheck shell=bash
# A bare Debian in a folder, to install into and to build in. Sourced.

skip() { # WHY: a test that cannot run here is no failure
    echo "skipped: $1"
    exit 0
}

mirror() { # where this machine gets its packages
    local known
    known=$(apt-cache policy libc6 | grep -o 'https\?://[^ ]*/debian\b') # the whole of it: a closed pipe is a failure
    echo "${known%%[[:space:]]*}" | grep . || echo http://deb.debian.org/debian
}

need_bare_roots() {
    [ "$EUID" = 0 ] || skip "a bare Debian can only be made by root"
    command -v debootstrap >/dev/null || skip "there is no debootstrap"
    unshare --mount --pid --fork true 2>/dev/null || skip "this machine lets nobody mount anything"
}

bare_root() { # SUITE FOLDER: makes it, unless it is there
    [ ! -e "$2/etc/debian_version" ] || return 0
    rm -rf "$2" "$2.unfinished"
    mkdir -p "$(dirname "$2")"
    echo "fetching a bare $1 ..."
    debootstrap --variant=minbase "$1" "$2.unfinished" "$(mirror)" >"$2.log" 2>&1 || {
        tail -3 "$2.log"
        skip "a bare $1 cannot be had here"
    }
    mv "$2.unfinished" "$2"
}

in_root() { # FOLDER COMMAND...: runs it there, as root, with its own processes and mounts that go with it
    # shellcheck disable=SC2016 # the inner shell's own
    unshare --mount --pid --fork bash -euc '
        mount -t proc proc "$1/proc"
        mount -t tmpfs tmpfs "$1/tmp"
        mount --rbind /dev "$1/dev"
        root=$1 && shift
        exec chroot "$root" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 \
            DEBIAN_FRONTEND=noninteractive "$@"' bash "$@"
}
