# What the tests put on the disk and find there, in a root directory of their own. They source it.
source "$(dirname "${BASH_SOURCE[0]}")/../scripts/common.sh"

umask 0 # so that files show the mode they are created with
make_root

# put PATH WHAT [TEXT] puts something in place of whatever stands there: nothing ("-"), a directory,
# an empty one, a file with this text, a private file, or a link to a target as in the tables.
put() {
    rm -rf "${root:?}$1"
    mkdir -p "$root${1%/*}"
    case $2 in
    -) ;;
    directory) put "$1/entry" file ;;
    empty) mkdir "$root$1" ;;
    file) printf %s "${3-}" >"$root$1" ;;
    private) install -m 662 /dev/null "$root$1" ;;
    system) ln -s /usr/share/zoneinfo.default "$root$1" ;;
    [0-9]*) ln -s "$store/tz/$2" "$root$1" ;;
    *) ln -s -- "$2" "$root$1" ;;
    esac
}

# at PATH prints a link's target as in the tables, a file's text, a directory's entries, or "-".
at() {
    { readlink "$root$1" || cat -E "$root$1" || ls "$root$1" || echo -; } 2>/dev/null |
        sed "s|^$store/||; s|^tz/||; s|^/usr/share/zoneinfo.default\$|system|"
}

# icu_of ZONEINFO prints the ICU data beside a zoneinfo tree; "-" for the system partition's.
icu_of() {
    if [[ $1 == system ]]; then echo -; else echo "${1%/*}/icutz"; fi
}

# arrange SYSTEM ZONEINFO LATEST arranges a system of this version, the links to its data sets, and
# updates. The ICU format of 2016d is not the system's.
arrange() {
    rm -rf "${root:?}"/{usr,var}
    put /usr/share/zoneinfo.default/+VERSION file "$1"
    put /usr/share/icu/icutzformat.txt file 44l
    for data in 2016{a.1.0,b,c}/icutz/icutz44l.dat 2016d/icutz/icutz52l.dat \
        2016c/zoneinfo/Europe/Paris; do put $store/tz/"$data" file; done
    put $store/zoneinfo "$2"
    put /var/db/icutz "$(icu_of "$2")"
    put $store/tz_latest "$3"
    put $store/localtime $store/zoneinfo/Europe/Paris
}

# expect WHAT FOUND PATTERN
expect() {
    # shellcheck disable=SC2053 # a pattern
    [[ $2 == $3 ]] || fail "$(printf '%s\n   %s: %s, expected %s' "${row-}" "$@")"
}
