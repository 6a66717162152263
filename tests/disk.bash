# What the tests put on the disk and find there, in a root directory of their own. They source it.
source "$(dirname "${BASH_SOURCE[0]}")/../scripts/common.sh"

umask 0 && make_root # the mask, so that files show the mode they are created with

# put PATH WHAT [TEXT] puts something in place of whatever stands there.
put() {
    rm -rf "${root:?}$1"
    mkdir -p "$root${1%/*}"
    case $2 in
    -) ;;                                                  # nothing
    empty) : >"$root$1" ;;                                 # an empty file
    text) printf %s "${3#-}" >"$root$1" ;;                 # a file with this text, "-" for none
    unreadable) install -m 773 /dev/null "$root$1" ;;      # a file that others may do all but read
    directory) put "$1/entry" empty ;;                     # a directory with an entry
    empty_directory) mkdir "$root$1" ;;                    # one without
    open) mkdir -m 775 "$root$1" ;;                        # one that others may write to
    system) ln -s /usr/share/zoneinfo.default "$root$1" ;; # a link to the system's tree,
    long) ln -s "$(printf %01500d 0)" "$root$1" ;;         # to more than the 1024 bytes read of it,
    /* | ./*) ln -s "$2" "$root$1" ;;                      # to this path,
    *) ln -s "$store/$2" "$root$1" ;;                      # to this path in the store
    esac
}

# at PATH prints what stands there in the words of put; of a file the text, with "$" at line ends.
at() {
    { readlink "$root$1" || cat -E "$root$1" || stat -c %F "$root$1" || echo -; } 2>/dev/null |
        sed "s|^$store/||; s|^/usr/share/zoneinfo\.default\$|system|" | grep . || echo empty
}

# arrange SYSTEM ZONEINFO LATEST arranges a system of this version, the links to its data sets, and
# updates. The ICU format of 2016d is not the system's.
arrange() {
    rm -rf "${root:?}"/{usr,var}
    put /usr/share/version text "$1" && chmod 444 "$root/usr/share/version" # it is only read
    put /usr/share/zoneinfo.default/+VERSION /usr/share/version
    put /usr/share/icu/icutzformat.txt text 44l
    for data in 2016{a.1.0,b,c}/icutz/icutz44l.dat 2016d/icutz/icutz52l.dat \
        2016c/zoneinfo/Europe/Paris; do put $store/tz/"$data" empty; done
    put $store/zoneinfo "$2"
    [[ $2 == system ]] || put /var/db/icutz "${2%/*}/icutz"
    put $store/tz_latest "$3"
    put $store/localtime zoneinfo/Europe/Paris
}

# expect WHAT FOUND PATTERN reports a difference, and goes on; $root/failed then exists.
expect() {
    # shellcheck disable=SC2053 # a pattern
    [[ $2 == $3 ]] ||
        printf '%s: %s\n   %s: %s, expected %s\n' "${0##*/}" "${row-}" "$@" | tee "$root/failed" >&2
}

# install_machine makes the root a machine that has the tools, and programs that these call.
install_machine() {
    umask 022 # nobody else may write to the store
    install_packages "${build_packages[@]}" icu-devtools
    build release
    install_tools
    mkdir -p "$root"/{bin,data,dev,etc,proc,stubs} && install -d -m 1777 "$root/tmp"
    local program
    for program in awk basename cat chmod chown cmp comm cp date dd dirname dpkg dpkg-deb \
        dpkg-divert dpkg-query env expr find flock genrb grep gzip head id ln ls md5sum mkdir \
        mktemp mv od paste prlimit readlink realpath rm rmdir sed setpriv setsid sh sha256sum \
        sleep sort stat sync tail tar tee timeout touch tr wc xargs zic; do
        install_program "$(type -P $program)"
        install "$(type -P $program)" "$root/bin"
    done
    [[ ! -d $root/usr/lib ]] || cp -r "$root/usr/lib" "$root" # as each row has another /usr
}

# on_machine COMMAND... runs a command there, among the data.
on_machine() {
    in_root /bin/env -i PATH=/stubs:/installed/usr/sbin:/bin /bin/sh -c \
        'cd /data; umask 077; exec "$@"' - "$@"
}
