# What the tools share. They source it with their arguments and with $here, the directory that they
# are in. It takes --help, and --root=DIR as the first argument, and sets $root, empty for the
# running system.
# shellcheck shell=sh disable=SC2034 # named by those that source this

set -eu
# shellcheck disable=SC2154 # $here
export LC_ALL=C PATH="$PATH:/usr/sbin:/sbin:$here"
unset CDPATH
umask 022 # everyone must be able to read the data

# The links, directories and files of tzpublish(8).
link=/var/db/timezone/zoneinfo
updates=/var/db/timezone/tz
tree=/usr/share/zoneinfo.default
icu_format_file=/usr/share/icu/icutzformat.txt icu_link=/var/db/icutz
record=/var/lib/tzpublish/setup # is there where tzpublish-setup has run
case $(printf '\1\0' | od -An -tu2) in # the format of ICU's releases since 4.4, by byte order
*1) icu_format=44l ;;
*) icu_format=44b ;;
esac

# note TEXT says something; what control characters are in it reaches no terminal.
note() {
    printf '%s: %s\n' "${0##*/}" "$(printf %s "$*" | tr -c '[:print:]' '?')" >&2
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

# --- What is there --------------------------------------------------------------------------------

there() {
    [ -e "$1" ] || [ -L "$1" ]
}

# first_word FILE prints the first word of a regular file in $root, of which the beginning is read.
first_word() {
    [ -f "$1" ] || return 0
    case $(realpath -- "$1") in "$root"/*) ;; *) return 0 ;; esac
    dd if="$1" iflag=nonblock bs=64K count=1 2>/dev/null | tr '\0' '?' |
        tr -s ' \t\n\v\f\r' '\n' | sed '/./!d; q'
}

# key VERSION prints a text: these are ordered as tzpublish orders versions. What is no version has
# none, and is the lowest. Fails if a number is too large for tzpublish.
key() {
    VERSION=$1 awk 'BEGIN {
        version = ENVIRON["VERSION"]
        if (version !~ /^[0-9]+[a-z]+(\.[0-9]+)?(\.[0-9]+)?$/) exit
        match(version, /[a-z]+/)
        letters = substr(version, RSTART, RLENGTH)
        year = substr(version, 1, RSTART - 1)
        count = split(substr(version, RSTART + RLENGTH), number, ".")
        second = count > 1 ? number[2] : -1
        third = count > 2 ? number[3] : -1
        largest = 2147483647
        if (year + 0 > largest || second + 0 > largest || third + 0 > largest) exit 1
        printf "%010d %s %010d %010d\n", year, letters, second + 1, third + 1
    }'
}

is_version() {
    [ "$(key "$1")" ]
}

# newer VERSION THAN: whether the first is newer than the second.
newer() {
    expr "x$(key "$1")" \> "x$(key "$2")" >/dev/null
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

system_version() {
    printf '%s.1.0\n' "$(first_word "$root$tree/+VERSION")"
}

# has_zones tells whether the system has zones; tzpublish resorts to this one itself.
has_zones() {
    [ -f "$root$tree/America/Los_Angeles" ]
}

# format_of UPDATE prints the tag of its ICU format, as tzpublish finds it.
format_of() {
    case $(realpath -m -- "$store/tz/$1/icutz") in "$root"/*) ;; *) return 0 ;; esac
    find "$store/tz/$1/icutz/" -maxdepth 1 -type f -perm -4 -printf '%f\0' 2>/dev/null |
        tr '\n\0' '?\n' | sed -n 's/^icutz\([0-9][0-9]*[lbe]\)\.dat$/\1/p' | head -n 1
}

# mounted UPDATE tells whether a part of it is mounted, as in a container.
mounted() {
    [ ! "$root" ] && cat /proc/[0-9]*/mountinfo 2>/dev/null | grep -qF "/tz/$1/"
}

# superfluous prints the updates that are neither published nor named, and older than one of these,
# and not in use in another way.
superfluous() {
    published=$(published_update) || published=
    latest=$(latest_update) || latest=
    for update in "$store"/tz/[0-9]*; do
        name=${update##*/}
        [ "$name" != "$published" ] && [ "$name" != "$latest" ] && is_version "$name" &&
            update_at "$updates/$name" >/dev/null && ! mounted "$name" || continue
        newer "$name" "$published" && newer "$name" "$latest" || printf '%s\n' "$name"
    done
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

# --- What the next run of tzpublish does ----------------------------------------------------------

# target_of LINK sets $target to what tzpublish reads of it; fails if that is no link.
target_of() {
    target=
    if [ -L "$1" ]; then
        target=$(readlink -n -- "$1" | head -c 1024 && echo .)
        target=${target%.}
    else
        [ ! -e "$1" ]
    fi
}

# foretell sets $published and $next, what is published now and after the next run: an update,
# "system", or nothing if no link can be created; $faulty, why the run gives up what is published;
# and $refused, why it does not adopt what tz_latest names.
foretell() {
    system=$(system_version) reads=$(first_word "$root$icu_format_file")
    published='' next=system faulty='' refused='' current=$system
    if target_of "$root$link"; then
        below=${target#"$updates/"}
        case $below in
        "$tree") published=system ;;
        "$target") ;;
        ?*/*) published=${below%/*} current=$published ;;
        esac
    elif [ -d "$root$link" ]; then
        next='' refused="$link is a directory"
        return
    fi
    if ! key "$system" >/dev/null; then
        next=$published refused="a number in the system's version is too large"
    elif ! target_of "$store/tz_latest"; then
        refused='tz_latest is no link'
    elif ! key "$current" >/dev/null; then
        faulty='a number in its version is too large' refused=$faulty
    else
        foretell_kept
        [ ! "$target" ] || foretell_latest "${target#"$updates/"}"
    fi
}

foretell_kept() {
    [ "$published" ] && [ "$published" != system ] || return 0
    if faulty=$(other_format "$published"); then
        return
    elif newer "$system" "$published"; then
        faulty="it is older than $system, the system's"
    else
        next=$published
    fi
}

foretell_latest() {
    if [ "$1" = "$target" ] || [ ! "$1" ]; then
        next=system refused='it names no update'
    elif ! key "$1" >/dev/null; then
        next=system refused='a number in its version is too large'
    elif refused=$(other_format "$1"); then
        return
    elif ! newer "$1" "$current"; then
        refused="it is not newer than $current"
    elif [ -d "$root$icu_link" ] && [ ! -L "$root$icu_link" ]; then
        next=system refused="$icu_link is a directory"
    else
        next=$1
    fi
}

# other_format UPDATE says of an update that it has another format than the system reads; fails if
# it has not.
other_format() {
    found=$(format_of "$1")
    [ "$found" != "$reads" ] &&
        printf 'its ICU format is %s, the system reads %s\n' "${found:-none}" "${reads:-none}"
}

# --- The store ------------------------------------------------------------------------------------

# foreign prints what is of the store, or leads there from $root on, and not root's or this user's
# alone to change.
foreign() {
    mine=$(id -u)
    for directory in "$root/var/db" "$store" "$store/tz"; do
        path=$(realpath -m -- "$directory")
        case $path in "$root"/*) ;; *) printf '%s\n' "$directory" && return ;; esac
        while [ "$path" != "$root" ]; do
            [ ! -e "$path" ] || find "$path" -maxdepth 0 ! \( -uid 0 -o -uid "$mine" \) -print \
                -o -perm /022 -print
            path=${path%/*}
        done
    done
    find "$store/" -mindepth 1 -maxdepth 2 -type d \( ! \( -uid 0 -o -uid "$mine" \) -o \
        -perm /022 \) 2>/dev/null
}

# owned PATH prints the command that makes it root's alone.
owned() {
    printf "chown -hR root:root '%s' && chmod -R go-w '%s'\n" "$1" "$1"
}

# check_store fails unless the store is there, inside $root, and this user's alone: every program
# reads what is in it, and dpkg works in it.
check_store() {
    [ -d "$store/tz" ] || fail "no directory: $store/tz"
    path=$(foreign | head -n 1)
    [ ! "$path" ] || fail "others can change it, so: $(owned "$path")"
}

# lock FILE lets no other run that takes the same lock work meanwhile. Only its owner can open it.
lock() {
    [ ! -L "$1" ] && { [ ! -e "$1" ] || [ -f "$1" ]; } || fail "no regular file: $1"
    umask 077
    exec 9>>"$1"
    umask 022
    chmod 600 "$1" # which flock(1) may have created for all to read
    flock -w 60 9 || fail "another run has held this lock for a minute: $1"
}

# --- Runs of tzpublish ----------------------------------------------------------------------------

booted() {
    [ ! "$root" ] && [ -d /run/systemd/system ]
}

# around COMMAND... runs a command while tzpublish does not run and its path unit does not watch:
# what it changes starts no run of its own.
around() {
    if booted; then
        systemctl --quiet stop tzpublish.path 2>/dev/null || :
        # One that is running would not see it. The unit limits its time.
        while systemctl show -P SubState tzpublish 2>/dev/null | grep -q start; do sleep 0.05; done
    fi
    "$@"
    ! booted || ! systemctl --quiet is-enabled tzpublish.path 2>/dev/null ||
        systemctl start tzpublish.path || :
}

# run runs tzpublish once, on a system that is not booted too, if that is this one.
run() {
    if booted; then
        systemctl start tzpublish
    elif [ ! "$root" ]; then
        tzpublish
    fi
}
