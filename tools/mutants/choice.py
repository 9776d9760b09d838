"""Choosing among the changes that the files allow."""

import hashlib


def choose(changes, count, seed, half_painting):
    """At most one change a line, the kinds taking turns. Whether a change comes early depends on the seed and on its
    own line alone, so that edits elsewhere leave most of the choice as it was."""
    if not half_painting:
        return pick(changes, count, seed)
    painting = pick([change for change in changes if change.paints], (count + 1) // 2, seed)
    others = [change for change in changes if not change.paints]
    return painting + pick(others, count - len(painting), seed)


def pick(changes, count, seed):
    waiting = by_kind(changes, seed)
    chosen, lines, keys = [], set(), set()
    while len(chosen) < count and any(waiting.values()):
        for kind in sorted(waiting):
            change = next_on_a_new_line(waiting[kind], lines, keys)
            if change:
                lines.add((change.file, change.line))
                keys.add(change.key)
                chosen.append(change)
    return chosen[:count]


def by_kind(changes, seed):
    """Each kind's changes, the first to be taken at the end."""
    kinds = {}
    for change in sorted(changes, key=lambda change: rank(change, seed), reverse=True):
        kinds.setdefault(change.kind, []).append(change)
    return kinds


def rank(change, seed):
    return hashlib.sha256(f"{seed}|{change.key}".encode()).hexdigest()


def next_on_a_new_line(waiting, lines, keys):
    while waiting:
        change = waiting.pop()
        if (change.file, change.line) not in lines and change.key not in keys:
            return change
    return None
