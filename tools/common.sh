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
zones=/usr/share/zoneinfo
icu_link=/var/db/icutz
icu_format_file=/usr/share/icu/icutzformat.txt
case $(printf '\1\0' | od -An -tu2) in # the format of ICU's releases since 4.4, by byte order
*1) icu_format=44l ;;
*) icu_format=44b ;;
esac
factory=/usr/share/factory$updates # what an image brings into the store at each boot
data=/usr/share/tzpublish/data # what packages offer; others lay it down in $state/data
units='tzpublish.service tzpublish.path tzpublish-clean.path tzpublish-follow.path
    tzpublish-follow.service'

# printable TEXT prints it on one line, with nothing that acts on a terminal.
printable() {
    printf %s "$*" | tr -c '[:print:]' '?'
}

note() {
    printf '%s: %s\n' "${0##*/}" "$(printable "$*")" >&2
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
state=$root/var/lib/tzpublish
record=$state/setup    # is there where tzpublish-setup has run
withdrawn=$state/withdrawn # fingerprints of offers
refused=$state/refused     # what is offered and could not be published: its path, and why

# --- What is there --------------------------------------------------------------------------------

there() {
    [ -e "$1" ] || [ -L "$1" ]
}

# decide ARGUMENT... asks tzpublish's own code. A file that never ends does not hold it up.
decide() {
    timeout 10 prlimit --as=67108864 "$here/../libexec/tzpublish/decision" "$@"
}

# order VERSION... prints those that are versions, the newest last.
order() {
    decide order "$@" 2>/dev/null
}

is_version() {
    [ "$(order "$1")" ]
}

# newer VERSION THAN: whether the first is newer than the second. What is no version is the oldest.
newer() {
    [ "$1" ] && [ "$1" != "$2" ] && [ "$(order "$1" "$2" | tail -n 1)" = "$1" ]
}

# foresee sets $system and $reads, the version and the ICU format of the system; $next, the target
# of the zoneinfo link after the next run of tzpublish; and $said, what that prints.
foresee() {
    said=$(decide next "$root" 2>&1) || :
    { read -r _ system; read -r _ reads; read -r _ next; } <<END || :
$(printf '%s\n' "$said" | tail -n 4)
END
    said=$(printf '%s\n' "$said" | sed -n 's/^tzpublish: \(.*\): [^:]*$/\1/p' |
        awk '!repeated[$0]++ { printf "%s%s", separator, $0; separator = "; " }')
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

# has_zones tells whether the system has zones; tzpublish resorts to this one itself.
has_zones() {
    [ -f "$root$tree/America/Los_Angeles" ]
}

# is_made UPDATE tells whether tzpublish-update has made it.
is_made() {
    set -- "$store/tz/$1"/made-of-*
    [ -e "$1" ]
}

# makes_icu_data tells whether tzpublish-update can make ICU data in the format $reads.
makes_icu_data() {
    [ "$reads" = $icu_format ] && command -v tzpublish-icu >/dev/null
}

# mounted UPDATE tells whether a part of it is mounted, as in a container.
mounted() {
    [ ! "$root" ] && cat /proc/[0-9]*/mountinfo 2>/dev/null | grep -qF "/tz/$1/"
}

# superfluous prints the updates that are neither published nor named, and older than what is, after
# foresee, not in use in another way, and not an image's own, which would come back.
superfluous() {
    published=$(published_update) || published=
    latest=$(latest_update) || latest=
    for update in "$store"/tz/[0-9]*; do
        name=${update##*/}
        [ "$name" != "$published" ] && [ "$name" != "$latest" ] && is_version "$name" &&
            update_at "$updates/$name" >/dev/null && ! mounted "$name" &&
            ! there "$root$factory/$name" || continue
        newer "$name" "${published:-$system}" && newer "$name" "$latest" || printf '%s\n' "$name"
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

# --- Who can change it ----------------------------------------------------------------------------

# loose FIND_ARGUMENT... prints what others than root and this user can change.
loose() {
    find "$@" ! -type l \( -perm /022 -o ! -uid 0 ! -uid "$(id -u)" \) 2>/dev/null || :
}

# foreign DEPTH PATH... prints what others can change of these, of what leads there from $root on,
# and of what is in them, so deep; and what leads out of $root.
foreign() {
    depth=$1
    shift
    for path; do
        physical=$(realpath -m -- "$path")
        case $physical in "$root"/*) ;; *) printf '%s\n' "$path" && continue ;; esac
        while [ "$physical" != "$root" ]; do
            loose "$physical" -maxdepth 0
            physical=${physical%/*}
        done
        loose "$path/" -mindepth 1 -maxdepth "$depth"
    done
}

# unsafe prints what others can change of the store, or of what tells the tools what to do.
unsafe() {
    foreign 2 "$store" "$store/tz"
    foreign 0 "$state" "$state/data" "$root$data"
}

# owned PATH prints the command that makes it root's alone; or that removes what leads elsewhere.
owned() {
    case $(realpath -m -- "$1") in
    "$root"/*) ;;
    *) printf "rm '%s'\n" "$1" && return ;;
    esac
    printf "chown -hR root:root '%s' && chmod -R go-w '%s'\n" "$1" "$1"
}

# check_store fails unless the store is there, inside $root, and nobody else's to change: every
# program reads what is in it, and dpkg works in it.
check_store() {
    [ -d "$store/tz" ] || fail "no directory: $store/tz"
    path=$(unsafe | head -n 1)
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

# run runs tzpublish once, on a system that is not booted too, if that is this one.
run() {
    if booted; then
        systemctl start tzpublish
    elif [ ! "$root" ]; then
        tzpublish
    fi
}
