"""icu_looks.py ZONES ICU_DATA LEAST compares what ICU and the C library show of compiled zones.

ZONES holds the zones, their tzdata.zi and zone.tab; ICU_DATA the zoneinfo64.res made of them. Fails
if they differ, if fewer than LEAST moments were looked at, or if ICU has lost what it knew itself.
"""
import os
import pickle
import subprocess
import sys
import time

FIRST, LAST = -3786825600, 4733510400  # 1850 and 2120
KNOWN = 1640995200  # 2022: each ICU's own data have the laws until then
NAMED = ('America/Chicago', 'Europe/Dublin', 'Europe/London', 'Asia/Tokyo', 'Africa/Casablanca')


def as_icu_shows(moments):
    """What this process's ICU shows: offset and saving at moments of zones, regions, and names."""
    import icu
    looks = {name: [icu.TimeZone.createTimeZone(name).getOffset(float(t), False) for t in times]
             for name, times in moments.items()}
    names = set(icu.TimeZone.createEnumeration())
    display = {(name, summer): icu.TimeZone.createTimeZone(name).getDisplayName(
        summer, icu.TimeZone.LONG, icu.Locale.getUS()) for name in NAMED for summer in (False, True)}
    return looks, {name: icu.TimeZone.getRegion(name) for name in names}, display


def shown_with(data, moments):
    """as_icu_shows in a process whose ICU reads this data, or its own."""
    environment = {**os.environ, 'ICU_TIMEZONE_FILES_DIR': data}
    return pickle.loads(subprocess.run([sys.executable, __file__], input=pickle.dumps(moments),
                                       env=environment, stdout=subprocess.PIPE, check=True).stdout)


def offset_of(moment):
    return time.localtime(moment).tm_gmtoff


def moments_of(path):
    """Of a zone, evenly spread ones, and those around each transition; and their offsets."""
    os.environ['TZ'] = ':' + path
    time.tzset()
    moments = set(range(FIRST, LAST, 270 * 86400 + 12345))
    step = 6 * 86400
    before = offset_of(FIRST)
    for end in range(FIRST + step, LAST, step):
        after = offset_of(end)
        if after != before:
            low, high = end - step, end  # the offset changes after low, until high
            while high - low > 1:
                middle = (low + high) // 2
                low, high = (middle, high) if offset_of(middle) == before else (low, middle)
            moments |= {high - 1, high, high + 1}
        before = after
    moments = sorted(moments)
    return moments, [offset_of(t) for t in moments]


def main(zones, data, least):
    moments, offsets, found = {}, {}, {}
    with open(zones + '/tzdata.zi', encoding='ascii') as lines:
        words = [line.split() for line in lines]
    for name in [w[1] if w[0] == 'Z' else w[2] for w in words if w[0] in 'ZL']:
        with open(f'{zones}/{name}', 'rb') as file:
            content = file.read()
        if content not in found:  # not that of another name
            found[content] = moments_of(f'{zones}/{name}')
        moments[name], offsets[name] = found[content]
    (made, regions, display), (own, own_regions, own_display) = (
        shown_with(directory, moments) for directory in (data, ''))

    looks = sum(map(len, moments.values()))
    wrong = [f'{name} at {t}: {sum(m) // 1000}, expected {o}' for name in moments
             for t, m, o in zip(moments[name], made[name], offsets[name]) if sum(m) != o * 1000]
    both = [(m, o) for name in moments if name in own_regions
            for t, m, o in zip(moments[name], made[name], own[name])
            if sum(m) == sum(o) and t < KNOWN]
    alike = sum(m == o for m, o in both)
    print(f'{looks} looks, {len(wrong)} wrong; {alike} of {len(both)} split as in ICU\'s own data')

    with open(zones + '/zone.tab', encoding='utf-8') as lines:
        listed = {line.split()[2] for line in lines if line[0] != '#'}
    lost = [name for name, region in own_regions.items() if not name.startswith('SystemV/') and
            regions.get(name) != (region if name in listed else regions.get(name, ''))]
    renamed = [key for key in own_display if display[key] != own_display[key]]
    if not least:
        lost = renamed = []  # only small zones are looked at
    for what in (wrong + lost + renamed)[:20]:
        print('WRONG ', what)
    return bool(wrong or lost or renamed or looks < least or alike < 0.998 * len(both))


if len(sys.argv) == 1:
    sys.stdout.buffer.write(pickle.dumps(as_icu_shows(pickle.load(sys.stdin.buffer))))
else:
    sys.exit(main(sys.argv[1], sys.argv[2], int(sys.argv[3])))
