# What the tools share. They source it with their arguments and with $here, the directory that they
# are in. It takes --help and --root=DIR from the arguments, and sets $root, empty for the running
# system.
# shellcheck shell=sh

set -eu
export LC_ALL=C PATH="$PATH:/usr/sbin:/sbin"
unset CDPATH
umask 022 # everyone must be able to read the data

# The links and directories of tzpublish(8), and the variable that lets ICU read the published data.
link=/var/db/timezone/zoneinfo
updates=/var/db/timezone/tz
tree=/usr/share/zoneinfo.default
# shellcheck disable=SC2034 # named by those that source this
icu_format_file=/usr/share/icu/icutzformat.txt icu_link=/var/db/icutz
# shellcheck disable=SC2154 # $here
environment=$(realpath "$here/../share/tzpublish/environment") # as sudo reads it, too
icu_variable=$(cat "$environment")

note() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
}

fail() {
    note "$*"
    exit 1
}

# help prints the comment that the tool begins with.
help() {
    sed -n '2,/^[^#]/ s/^# \{0,1\}//p' "$0"
}

misused() {
    printf 'usage:\n' >&2
    help | sed -n '/^$/q; p' >&2
    exit 2
}

root=
case ${1-} in
--help)
    help
    exit
    ;;
--root=*)
    [ -d "${1#*=}" ] || fail "no directory: ${1#*=}"
    root=$(cd -- "${1#*=}/" && pwd -P && echo .)
    root=${root%??} # less the line end and the dot, which keeps a line end in the name
    root=${root%/}
    shift
    ;;
esac
store=$root/var/db/timezone

# --- Versions and updates -------------------------------------------------------------------------

# matches TEXT PATTERN: whether the basic regular expression matches the whole text.
matches() {
    expr "x$1" : "x\($2\)\$" >/dev/null
}

is_version() {
    matches "$1" '[0-9][0-9]*[a-z][a-z]*\(\.[0-9][0-9]*\)\{0,2\}'
}

# newer VERSION THAN: whether the first is newer than the second; any is if that is no version.
newer() {
    is_version "$1" || return
    ! is_version "$2" ||
        ! printf '%s\n' "$1" "$2" | sort -C -t . -k 1,1n -k 1,1 -k 2,2n -k 2,2 -k 3,3n -k 3,3
}

# update_at PATH prints the name of the update at a path, as the links have it; fails if there is
# none.
update_at() {
    name=${1#"$updates/"}
    case $name in "$1" | '' | .* | */*) return 1 ;; esac
    [ -d "$root$1" ] && [ ! -L "$root$1" ] && printf '%s\n' "$name"
}

# published_update prints the name of the update that the zoneinfo link names; fails if there is
# none.
published_update() {
    target=$(readlink "$root$link") && update_at "${target%/*}"
}

# latest_update prints the name of the update that tz_latest names; fails if there is none.
latest_update() {
    target=$(readlink "$store/tz_latest") && update_at "$target"
}

# first_word FILE prints the first word of a file that is no pipe, and may be of any size.
first_word() {
    [ ! -f "$1" ] || head -c 1000 "$1" | tr -s '\t\n\v\f\r' ' ' | sed 's/^ *//; s/ .*//'
}

system_version() {
    printf '%s.1.0\n' "$(first_word "$root$tree/+VERSION")"
}

# has_zones tells whether the system has zones; tzpublish resorts to this one itself.
has_zones() {
    [ -f "$root$tree/America/Los_Angeles" ]
}

# update_format UPDATE prints the tag of its ICU format, as its first data file tells it.
update_format() {
    for file in "$store/tz/$1"/icutz/icutz*.dat; do
        file=${file##*/icutz}
        ! matches "$file" '[0-9][0-9]*[lbe]\.dat' || { printf '%s\n' "${file%.dat}" && return; }
    done
}

# refusal UPDATE prints why tzpublish does not adopt an update; nothing if it does.
refusal() {
    format=$(update_format "$1") reads=$(first_word "$root$icu_format_file")
    published=$(published_update) || published=$(system_version)
    if [ "$format" != "$reads" ]; then
        printf 'its ICU format is %s, the system reads %s\n' "${format:-none}" "${reads:-none}"
    elif ! newer "$1" "$published"; then
        printf 'it is not newer than %s, which is published\n' "$published"
    fi
}

# serves UPDATE PUBLISHED LATEST: whether an update is one of these, or newer than both.
serves() {
    case $1 in "$2" | "$3") return 0 ;; esac
    ! is_version "$1" || { newer "$1" "$2" && newer "$1" "$3"; }
}

# local_zone prints the name of the local zone, as /etc/localtime tells it; fails if it does not.
local_zone() {
    target=$(readlink "$root/etc/localtime") || return
    case $target in
    /var/db/timezone/localtime) target=$(readlink "$store/localtime") || return ;;
    esac
    case $target in
    */zoneinfo/*) printf '%s\n' "${target##*/zoneinfo/}" ;;
    *) return 1 ;;
    esac
}

# sudo_environment prints the file whose variables sudo gives to the commands that it runs.
sudo_environment() {
    find "$root/etc/sudoers" "$root/etc/sudoers.d" -type f ! -name '*[.~]*' -exec sed -n \
        's/^[[:space:]]*Defaults[[:space:]].*env_file="\{0,1\}\([^",[:space:]]*\).*/\1/p' \
        {} + 2>/dev/null | tail -n 1
}

# has_variable FILE... tells whether one of these sets ICU's variable.
has_variable() {
    grep -qs "^[^#]*$icu_variable" "$@"
}

# --- The store ------------------------------------------------------------------------------------

# check_path PATH STICKY fails if somebody else can change what a physical path leads to. From $root
# on, its directories must belong to root or this user; others may write only to those with a mode
# in STICKY, where they cannot rename what is not theirs.
check_path() {
    path=$1 sticky=$2
    while [ "$path" ]; do
        set -- "$(stat -c %u "$path")" "0$(stat -c %a "$path")"
        [ "$1" -eq 0 ] || [ "$1" -eq "$(id -u)" ] ||
            fail "belongs to $(stat -c %U "$path"): $path"
        [ $(($2 & 022)) -eq 0 ] || [ $(($2 & sticky)) -ne 0 ] ||
            fail "others may write to it: $path"
        [ "$path" != "$root" ] || break
        path=${path%/*} sticky=01000
    done
}

# check_store fails unless the store is inside $root and this user's alone.
check_store() {
    for directory in "$root/var/db" "$store" "$store/tz"; do
        [ -d "$directory" ] || fail "no directory: $directory"
        physical=$(cd "$directory" && pwd -P)
        case $physical in
        "$root"/*) ;;
        *) fail "leads out of $root: $directory" ;;
        esac
        if [ "$directory" = "$root/var/db" ]; then
            check_path "$physical" 01000
            continue
        fi
        [ -O "$directory" ] || fail "belongs to $(stat -Lc %U "$directory"), not to you: $directory"
        check_path "$physical" 0
    done
}

# lock FILE lets no other run that takes the same lock work meanwhile. A command that outlives this
# run keeps it. Only the file's owner can open it.
lock() {
    umask 077
    exec 9>>"$1"
    umask 022
    chmod 600 "$1" # which flock(1) may have created for all to read
    flock -w 60 9 || fail "locked by another run: $1"
}

# --- Runs of tzpublish ----------------------------------------------------------------------------

booted() {
    [ ! "$root" ] && [ -d /run/systemd/system ]
}

# run runs tzpublish, on a system that is not running too, if that is this one. Without the
# protections of its unit, it could write through a link of somebody else's store.
run() {
    if booted; then
        systemctl start tzpublish
    elif [ ! "$root" ] && [ -O "$store" ]; then
        tzpublish
    fi
}
