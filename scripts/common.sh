# What the scripts share. Sourcing it changes to the top of the clone.
# shellcheck shell=bash

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export LC_ALL=C   # programs print alike everywhere,
PATH+=:/usr/sbin # and an ordinary user finds chroot and zic.
# shellcheck disable=SC2034 # named by those that source this
store=/var/db/timezone build_packages=(cmake g++ ninja-build)

fail() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# install_packages PACKAGE... installs the Debian packages that are missing, and asks nothing.
install_packages() {
    local package missing=() as_root=()
    for package; do
        [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
            missing+=("$package")
    done
    [[ ${#missing[@]} -gt 0 ]] || return 0
    if [[ $EUID -ne 0 ]]; then
        sudo -n true 2>/dev/null ||
            fail "these packages are missing, and only root can install them: ${missing[*]}"
        as_root=(sudo -n)
    fi
    local log
    local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0)
    printf 'Installing %s ...\n' "${missing[*]}" >&2
    if ! log=$({ "${apt[@]}" update &&
        "${apt[@]}" install -y --no-install-recommends "${missing[@]}"; } 2>&1 </dev/null); then
        printf '%s\n' "$log" >&2
        fail "these packages could not be installed: ${missing[*]}"
    fi
}

# build PRESET configures and builds, one script at a time; what that prints is shown only if it
# fails.
build() {
    local log
    printf 'Building in build/%s ...\n' "$1" >&2
    mkdir -p build
    if ! log=$(flock build sh -c "cmake --preset $1 && cmake --build --preset $1" 2>&1); then
        printf '%s\n' "$log" >&2
        fail "the $1 build failed"
    fi
}

# make_root sets $root to a new, empty root directory, which is removed when the script ends. Those
# of scripts that were killed are removed, too: a live script, and what it has started, holds a lock
# on its own. As it takes the lock a moment after creating the directory, new ones are left alone.
make_root() {
    local directory=${TMPDIR:-/tmp} lock
    find "$directory/" -maxdepth 1 -type d -name 'tzpublish-root-*' -user "$EUID" -mmin +1 \
        -exec flock -n {} rm -rf {} \; 2>/dev/null || true
    root=$(mktemp -d "$directory/tzpublish-root-XXXXXX")
    trap 'trap "" HUP INT TERM; rm -rf "$root"' EXIT
    trap 'exit 1' HUP INT TERM # bash waits for the running command first, which may write there
    exec {lock}<"$root"
    flock "$lock"
}

# install_program FILE... copies programs into the root, with the libraries that they load.
install_program() {
    local program file
    for program; do
        { printf '%s\n' "$program"; ldd "$program" 2>/dev/null | grep -o '/[^ )]*' || true; } |
            while read -r file; do
                install -D "$file" "$root$file"
            done
    done
}

# as_root COMMAND... runs a command as root; for an ordinary user, in a user namespace.
as_root() {
    if [[ $EUID -eq 0 ]]; then
        "$@"
    else
        unshare --map-root-user "$@"
    fi
}

# in_root COMMAND... runs a command inside the root, as root there.
in_root() {
    as_root chroot "$root" "$@"
}

# install_tools installs what the release build has made, and the tools into $tools. They work on
# $root with --root=$root.
install_tools() {
    DESTDIR=$root/installed cmake --install build/release --prefix /usr >/dev/null
    # shellcheck disable=SC2034 # named by those that source this
    tools=$root/installed/usr/sbin
}

zone=Asia/Tokyo # whose rule the scripts change

# derived_zones DIRECTORY RELEASE RULE prints the zone data that is there under the name of a
# release, with another rule for the zone.
derived_zones() {
    sed "1 s/.*/# version $2/; \\|^Z $zone |,/^9 / s/^9 .*/$3/" "$1/tzdata.zi"
}

# nspawn DIRECTORY OPTION... boots the root directory $root/DIRECTORY as a container, for five
# minutes at most. It gets a control group of its own, made here, as this machine may be a container
# itself and have no systemd that makes one.
nspawn() {
    # shellcheck disable=SC2016 # expanded inside
    unshare --mount sh -ec '
        umount -R /sys/fs/cgroup 2>/dev/null || :
        mkdir -p /sys/fs/cgroup
        mount -t cgroup2 none /sys/fs/cgroup
        group=/sys/fs/cgroup/$0
        mkdir "$group"
        trap "find $group -depth -type d -exec rmdir {} +" EXIT
        (echo 0 >"$group/cgroup.procs" && exec timeout -k 10 300 "$@")' \
        "${root##*/}-$1" env SYSTEMD_NSPAWN_UNIFIED_HIERARCHY=1 \
        systemd-nspawn --quiet --register=no --keep-unit --timezone=off --link-journal=no \
        --console=pipe --machine="$1" --directory="$root/$1" "${@:2}" --boot </dev/null
}
