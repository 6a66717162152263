"""icu_looks.py ZONES compares what ICU and the C library show of compiled zones.

ZONES holds the zones, their tzdata.zi and zone.tab, and the zoneinfo64.res made of them. Fails if
they differ, or if ICU has lost what it knows itself.
"""
import bisect
import multiprocessing
import os
import re
import sys
import time

FIRST, KNOWN, LAST = -3786825600, 1640995200, 4733510400  # 1850, 2120; any ICU knows it until 2022
STEP = 6 * 86400


def offset_at(moment):
    return time.localtime(moment).tm_gmtoff


def looks_at(path):
    """At a zone: moments, evenly spread and around each transition, and their offsets."""
    os.environ['TZ'] = ':' + path
    time.tzset()
    moments = set(range(FIRST, LAST, 270 * 86400 + 12345))
    for low in range(FIRST, LAST, STEP):
        before, span = offset_at(low), range(low, low + STEP)
        if offset_at(low + STEP) != before:
            end = low + bisect.bisect(span, False, key=lambda t: offset_at(t) != before)
            moments |= {end - 1, end, end + 1}
    return [(t, offset_at(t)) for t in sorted(moments)]


def icu_shows(data, looks):
    """With this data, or its own: offset and saving at the moments, and regions."""
    os.environ['ICU_TIMEZONE_FILES_DIR'] = data
    import icu  # which reads the data once in a process
    offset = {name: icu.TimeZone.createTimeZone(name).getOffset for name in looks}
    return ({name: [offset[name](float(t), False) for t, _ in looks[name]] for name in looks},
            {name: icu.TimeZone.getRegion(name) for name in icu.TimeZone.createEnumeration()})


def main(zones):
    with open(zones + '/tzdata.zi', encoding='ascii') as file:
        names = re.findall(r'^(?:z\w*|l\w* \S+) (\S+)', file.read(), re.I | re.M)
    with open(zones + '/zone.tab', encoding='utf-8') as file:
        listed = re.findall(r'^(\w\w)\t\S+\t(\S+)', file.read(), re.M)
    with multiprocessing.Pool(maxtasksperchild=1) as pool:
        looks = dict(zip(names, pool.map(looks_at, [f'{zones}/{name}' for name in names])))
        (made, regions), (own, own_regions) = pool.starmap(
            icu_shows, [(zones, looks), ('', looks)], 1)

    wrong = [f'lost: {name}' for name in own_regions.keys() - regions if 'SystemV' not in name]
    wrong += [f'{name}: not {region}' for region, name in listed if regions.get(name) != region]
    alike = []
    for name in names:
        for (t, offset), m, o in zip(looks[name], made[name], own[name]):
            if sum(m) != offset * 1000:
                wrong.append(f'{name} at {t}: {sum(m) // 1000}, expected {offset}')
            elif sum(m) == sum(o) and t < KNOWN:
                alike.append(m == o)
    count = sum(map(len, looks.values()))
    print(count, 'looks,', len(wrong), 'wrong;', sum(alike), 'of', len(alike), 'split alike')
    print(*wrong[:20], sep='\n', end='')
    return bool(wrong or count < 400000 or sum(alike) < 0.998 * len(alike))


if __name__ == '__main__':
    sys.exit(main(sys.argv[1]))
