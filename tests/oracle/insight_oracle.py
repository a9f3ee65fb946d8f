# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""What the additional commands say, stated a second time and as briefly as possible.

Independent of the program's sources on purpose, like oracle.py, from which the rules of the table come.
"""

from oracle import CR_LF, GRADES, LEVELS, TOTALS, EndedEarly, add_time, format_total, instr, mid, ordinal, shown, whole

ALL_GRADES = GRADES + ["Beginner"]
TEN_MINUTES = 60000


def exact(time):
    """Hundredths of a text with digits where a time has them; None for any other."""
    if len(ordinal(time)) != 8 or len(time) != 8:
        return None
    digits = [time[i] for i in (0, 1, 3, 4, 6, 7)]
    if not all("0" <= d <= "9" for d in digits):
        return None
    m1, m2, s1, s2, h1, h2 = map(int, digits)
    return ((m1 * 10 + m2) * 60 + s1 * 10 + s2) * 100 + h1 * 10 + h2


def counted(time):
    """What a level adds to a total."""
    if time == "SKIPPED":
        return TEN_MINUTES
    return (whole(time[:2]) * 60 + whole(time[3:5])) * 100 + whole(time[6:8])


def grade_of(targets, level, time):
    if time == "SKIPPED":
        return 5
    for i, times in enumerate(targets):
        if ordinal(time) <= ordinal(times[level]):
            return i
    return 5


def next_goal(targets, level, time, wanted=None):
    """(grade, target, gap) of the cheapest better grade, or of the grade wanted."""
    value = exact(time)
    if value is None:
        return None
    better = range(grade_of(targets, level, time))
    goals = []
    for grade in better:
        target = exact(targets[grade][level])
        if target is not None and target < value and wanted in (None, grade):
            goals.append((value - target, grade))
    if not goals:
        return None
    gap, grade = min(goals)
    return {"grade": GRADES[grade], "target": shown(targets[grade][level]), "gap": gap}


def next_rows(loading, player, wanted=None):
    """All rows of `next` for a loading that has run."""
    rows = []
    if player == 2 and loading.comp_path.strip(" ") == "compwith":
        return rows
    for level in range(1, min(LEVELS, len(loading.rows)) + 1):
        cells = loading.cells(level)
        time = cells[2 * player - 1]
        goal = next_goal(loading.targets, level, time, wanted)
        if goal is None:
            continue
        record = exact(loading.targets[0][level])
        rows.append(
            {
                "level": level,
                "name": shown(cells[0]),
                "time": shown(time),
                "hundredths": exact(time),
                "grade": ALL_GRADES[grade_of(loading.targets, level, time)],
                "next": goal,
                "record_gap": None if record is None else exact(time) - record,
            }
        )
    return sorted(rows, key=lambda row: (row["next"]["gap"], row["level"]))


def next_report(loading, player, wanted=None, limit=10):
    rows = next_rows(loading, player, wanted)
    within = {text: sum(row["next"]["gap"] <= gap for row in rows) for text, gap in (("0.50", 50), ("1.00", 100), ("2.00", 200))}
    return {"player": shown(loading.names[player - 1]), "rows": rows[:limit] if limit else rows, "within": within}


# Statistics files


def is_statistics(text):
    lower = text.lower()
    return "player" in lower and "level" in lower


def read_levels(text):
    """A list of (name, time, driver), or EndedEarly."""
    levels = []
    scan = 0
    for _ in range(LEVELS):
        scan = instr(text, "Level", scan + 1)
        line_end = instr(text, CR_LF, scan + 1)
        header = mid(text, scan, line_end - scan)
        time_line = mid(text, line_end, instr(text, CR_LF, line_end + 3 + 1) - line_end)
        line = time_line.replace(CR_LF, "").strip(" ")
        name = header.replace("Level ", "")
        if line == "" or "Level" in line:
            levels.append((name, "SKIPPED", ""))
        else:
            levels.append((name, line[:8], line[9:].strip(" ")))
    return levels


def read_whole(text):
    """The levels of a whole statistics file, else None."""
    try:
        return read_levels(text) if is_statistics(text) else None
    except EndedEarly:
        return None


def table_total(times):
    total = "00:00:00"
    for time in times:
        total = add_time(total, "10:00:00" if time == "SKIPPED" else time)
    return format_total(total)


# Progress


def kind_of(before, after):
    b, a = exact(before), exact(after)
    if before == "SKIPPED" and a is not None:
        return "first"
    if after == "SKIPPED" and b is not None:
        return "lost"
    if a is None or b is None or a == b:
        return "unclear"
    return "better" if a < b else "worse"


def diff_report(before, after, targets):
    changes = []
    for level, (old, new) in enumerate(zip(before, after), start=1):
        if old[1] == new[1]:
            continue
        changes.append(
            {
                "level": level,
                "name": shown(new[0]),
                "before": shown(old[1]),
                "after": shown(new[1]),
                "grade_before": ALL_GRADES[grade_of(targets, level, old[1])],
                "grade_after": ALL_GRADES[grade_of(targets, level, new[1])],
                "kind": kind_of(old[1], new[1]),
                "gain": counted(old[1]) - counted(new[1]),
            }
        )
    total = {
        "before": shown(table_total([level[1] for level in before])),
        "after": shown(table_total([level[1] for level in after])),
        "gain": sum(change["gain"] for change in changes),
    }
    return {"changes": changes, "total": total}


def best_ever_report(states, targets):
    """`states` are (name, levels) in their order."""
    levels = []
    for index in range(LEVELS):
        best = ("SKIPPED", "", None)
        for state, times in states:
            _, time, driver = times[index]
            value = exact(time)
            if value is not None and (exact(best[0]) is None or value < exact(best[0])):
                best = (time, driver, state)
        levels.append(
            {
                "level": index + 1,
                "name": shown(states[-1][1][index][0]) if states else "",
                "time": shown(best[0]),
                "hundredths": exact(best[0]),
                "driver": shown(best[1]),
                "grade": ALL_GRADES[grade_of(targets, index + 1, best[0])],
                "since": best[2],
            }
        )
    return levels


# Clubs


def club_report(files, targets):
    """`files` are (path, base name, content as bytes); whole statistics files only."""
    players = {}
    for path, base, content in files:
        times = read_levels(content.decode("utf-8", "surrogateescape"))
        name = next((driver for _, time, driver in times if time != "SKIPPED"), "") or base
        key = (content, name)
        if key in players:
            players[key]["file"] = min(players[key]["file"], path, key=ordinal)
            continue
        grades = [grade_of(targets, level, time) for level, (_, time, _) in enumerate(times, start=1)]
        players[key] = {
            "name": name,
            "file": path,
            "times": times,
            "total": table_total([time for _, time, _ in times]),
            "hundredths": sum(counted(time) for _, time, _ in times),
            "grades": {grade: grades.count(i) for i, grade in enumerate(ALL_GRADES)},
        }
    # Players with the same total and name stand in an order that nothing visible tells.
    table = sorted(players.values(), key=lambda p: (p["hundredths"], ordinal(p["name"])))
    levels = []
    for index in range(LEVELS):
        driven = [p["times"][index][1] for p in table if exact(p["times"][index][1]) is not None]
        fastest = min(map(exact, driven)) if driven else None
        time = min((t for t in driven if exact(t) == fastest), key=ordinal) if driven else "SKIPPED"
        winners = [p for p in table if fastest is not None and exact(p["times"][index][1]) == fastest]
        for player in winners:
            player["won"] = player.get("won", 0) + 1
        levels.append(
            {
                "level": index + 1,
                "time": shown(time),
                "grade": ALL_GRADES[grade_of(targets, index + 1, time)],
                "drivers": [shown(p["name"]) for p in winners],
                "hundredths": fastest or 0,
            }
        )
    team_total = ""
    for level in levels:
        team_total = add_time(team_total, level["time"])
    return {
        "players": [
            {
                "name": shown(p["name"]),
                "total": shown(p["total"]),
                "hundredths": p["hundredths"],
                "grades": p["grades"],
                "levels_won": p.get("won", 0),
            }
            for p in table
        ],
        "levels": [{key: level[key] for key in ("level", "time", "grade", "drivers")} for level in levels],
        "team": {
            "total": team_total,
            "hundredths": sum(level["hundredths"] for level in levels),
            "grades": {grade: sum(level["grade"] == grade for level in levels) for grade in ALL_GRADES},
        },
    }
