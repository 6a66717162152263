"""icu_looks.py ZONES LEAST compares what ICU and the C library show of compiled zones.

ZONES holds the zones, their tzdata.zi and zone.tab, and the zoneinfo64.res made of them. Fails if
they differ. Unless LEAST is 0, also if it is more than the moments looked at, or if ICU has lost
what it knows itself.
"""
import os
import pickle
import subprocess
import sys
import time

FIRST, KNOWN, LAST = -3786825600, 1640995200, 4733510400  # 1850, 2120; any ICU knows it until 2022
NAMED = ('America/Chicago', 'Europe/Dublin', 'Europe/London', 'Asia/Tokyo', 'Africa/Casablanca')


def as_icu_shows(moments):
    """What this process's ICU shows: offset and saving at moments of zones, regions, and names."""
    import icu
    zone = icu.TimeZone.createTimeZone
    return ({name: [zone(name).getOffset(float(t), False) for t in times]
             for name, times in moments.items()},
            {name: icu.TimeZone.getRegion(name) for name in icu.TimeZone.createEnumeration()},
            {(name, summer): zone(name).getDisplayName(summer, icu.TimeZone.LONG,
                                                       icu.Locale.getUS())
             for name in NAMED for summer in (False, True)})


def shown_with(data, moments):
    """as_icu_shows in a process whose ICU reads this data, or its own."""
    return pickle.loads(subprocess.run([sys.executable, __file__], input=pickle.dumps(moments),
                                       env={**os.environ, 'ICU_TIMEZONE_FILES_DIR': data},
                                       stdout=subprocess.PIPE, check=True).stdout)


def offset_at(moment):
    return time.localtime(moment).tm_gmtoff


def looks_at(path):
    """At a zone: moments, evenly spread and around each transition, and their offsets."""
    os.environ['TZ'] = ':' + path
    time.tzset()
    moments = set(range(FIRST, LAST, 270 * 86400 + 12345))
    step = 6 * 86400
    for high in range(FIRST + step, LAST, step):
        low, before = high - step, offset_at(high - step)
        if offset_at(high) != before:
            while high - low > 1:  # the offset changes after low, until high
                middle = (low + high) // 2
                low, high = (middle, high) if offset_at(middle) == before else (low, middle)
            moments |= {high - 1, high, high + 1}
    return [(t, offset_at(t)) for t in sorted(moments)]


def main(zones, least):
    with open(zones + '/tzdata.zi', encoding='ascii') as lines:
        words = [line.split() for line in lines]
    looks = {w[-1] if w[0] == 'L' else w[1]: None for w in words if w[0] in 'ZL'}
    found = {}  # of equal files
    for name in looks:
        with open(f'{zones}/{name}', 'rb') as file:
            content = file.read()
        looks[name] = found[content] = found.get(content) or looks_at(f'{zones}/{name}')
    moments = {name: [t for t, _ in looks[name]] for name in looks}
    made, regions, display = shown_with(zones, moments)
    own, own_regions, own_display = shown_with('', moments)

    wrong = [f'{name} at {t}: {sum(m) // 1000}, expected {offset}' for name in looks
             for (t, offset), m in zip(looks[name], made[name]) if sum(m) != offset * 1000]
    alike = [m == o for name in looks if name in own_regions
             for t, m, o in zip(moments[name], made[name], own[name])
             if sum(m) == sum(o) and t < KNOWN]
    count = sum(map(len, looks.values()))
    print(count, 'looks,', len(wrong), 'wrong;', sum(alike), 'of', len(alike), 'split alike')
    if least:
        with open(zones + '/zone.tab', encoding='utf-8') as lines:
            listed = {line.split()[2] for line in lines if line[0] != '#'}
        wrong += [f'{name}: {regions.get(name)}' for name, region in own_regions.items()
                  if not name.startswith('SystemV/') and
                  (name not in regions or name in listed and regions[name] != region)]
        wrong += [f'{key}: {display[key]}' for key in display if display[key] != own_display[key]]
    print(*wrong[:20], sep='\n', end='')
    return bool(wrong or count < least or sum(alike) < 0.998 * len(alike))


if len(sys.argv) == 1:
    sys.stdout.buffer.write(pickle.dumps(as_icu_shows(pickle.load(sys.stdin.buffer))))
else:
    sys.exit(main(sys.argv[1], int(sys.argv[2])))
