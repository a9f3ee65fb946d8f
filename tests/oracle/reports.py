# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""The rules of the reports, of the levels' statistics and of new targets, stated a second time.

Independent of the program's sources on purpose, as oracle.py is, whose tables these are made of.
"""

from oracle import CR_LF, GRADES, LEVELS, TOTALS, EndedEarly, add_time, hundredths, instr, mid, ordinal

BEGINNER = GRADES + ["Beginner"]
COUNT_LABELS = ["World Records: ", "World Class: ", "Professional: ", "Good: ", "OK: ", "Beginner: "]
ADDRESS = "https://kavo-timing.example/"
MARKER = 'align="right">'


def cell(loading, row, column):
    """The text of a cell; empty where there is no such row."""
    return loading.rows[row - 1]["cells"][column] if row <= len(loading.rows) else ""


def fitted(text, width):
    return text[:width].ljust(width)


# The text report


def team_time(loading, row):
    first, second = cell(loading, row, 1), cell(loading, row, 3)
    return first if ordinal(first) < ordinal(second) else second


def text_report(loading):
    lines = [
        fitted("Level name", 24) + fitted("Time1", 8) + "\t" + fitted("Target1", 20) + fitted("Time2", 8) + "\t"
        + fitted("Target2", 20) + fitted("Difference", 12) + fitted("Team Time", 13) + "Target" + CR_LF
    ]
    team_counts = [0] * 6
    team_total = ""
    for row in range(1, TOTALS + 1):
        shown = team_time(loading, row)
        team_counts[loading.grade(row, shown)] += 1
        if row < TOTALS:
            team_total = add_time(team_total, shown)
        else:
            shown = team_total
        name = cell(loading, row, 0)
        if len(name) > 23:
            raise EndedEarly("Invalid procedure call or argument")
        lines.append(
            fitted(name, 24) + cell(loading, row, 1) + "\t" + fitted(cell(loading, row, 2), 20)
            + cell(loading, row, 3) + "\t" + fitted(cell(loading, row, 4), 20) + cell(loading, row, 5) + "\t"
            + shown + "     " + BEGINNER[loading.grade(row, shown)] + CR_LF
        )
    victories = [*loading.victories, sum(loading.victories)]
    for name, counts, won in zip(loading.names, [loading.counts[0], loading.counts[1], team_counts], victories):
        lines += [CR_LF, name]
        lines += [label + str(count) for label, count in zip(COUNT_LABELS, counts)]
        lines.append("Victories: " + str(won))
    return "".join(line + CR_LF for line in lines)


# The template report


def lines_of(text):
    """The lines of a file, without their ends; an end behind the last one begins no further line."""
    parts = text.split("\n")
    if parts[-1] == "":
        parts.pop()
    return [part[:-1] if part.endswith("\r") else part for part in parts]


def template_sections(text):
    """The four sections of a template file, as they are when the boxes were empty before."""
    sections = ["", "", "", ""]
    lines = iter(lines_of(text))
    try:
        for i, separator in enumerate(("%template2%", "%template3%", "%template4%")):
            for line in iter(lambda: next(lines), None):
                if line.strip(" ") == separator:
                    break
                sections[i] += line + CR_LF
        sections[3] += next(lines) + CR_LF
    except StopIteration:
        return sections  # and nothing is cut
    sections[3] += "".join(line + CR_LF for line in lines)
    return [section[:-2] for section in sections]


def substituted(loading, section, row, dates):
    """`dates`: the short date, date and time, the time."""
    values = list(zip(("%date%", "%date_time%", "%time%"), dates))
    if row:
        level = ["record1", "record2", "target1", "target2", "team_record", "team_target", "best_driver", "lev_name"]
        values += [(f"%{name}%", cell(loading, row, at)) for name, at in zip(level, (1, 3, 2, 4, 6, 7, 8, 0))]
    total = ["tt1", "tt2", "tt1target", "tt2target", "ttt", "ttttarget"]
    values += [(f"%{name}%", cell(loading, TOTALS, at)) for name, at in zip(total, (1, 3, 2, 4, 6, 7))]
    for grade, short in enumerate(("wr", "wc", "pr", "go", "ok", "be")):
        values += [(f"%{short}{side}%", str(loading.counts[i][grade])) for i, side in enumerate("12t")]
    victories = [*loading.victories, sum(loading.victories)]
    values += [(f"%vic{side}%", str(won)) for side, won in zip("12t", victories)]
    values += list(zip(("%player1%", "%player2%", "%team%"), loading.names))
    for placeholder, value in values:
        section = section.replace(placeholder, value)
    return section


def template_report(loading, sections, dates):
    parts = [f"<!-- Maden by prog Kavo Timing v.2.1 by Nurel. Download here: {ADDRESS} -->"]
    parts.append(substituted(loading, sections[0], 0, dates))
    parts += [substituted(loading, sections[1], row, dates) for row in range(1, LEVELS + 1)]
    parts += [substituted(loading, section, 0, dates) for section in sections[2:]]
    return "".join(part + CR_LF for part in parts)


# The levels' statistics


def level_statistics(loading):
    """A line per level: the number that fills a bar, the seven bars' times and lengths, and the bars from the top.
    They are sorted from where the level before left them."""
    place = list(range(7))
    text = ""
    for row in range(1, TOTALS + 1):
        first, second = cell(loading, row, 1), cell(loading, row, 3)
        slowest = loading.targets[4][row]
        longest = first if ordinal(first) > ordinal(slowest) else slowest
        longest = second if ordinal(second) > ordinal(slowest) else longest
        most = max(1, round(hundredths(longest)))
        times = [targets[row] for targets in loading.targets] + [first, second]
        for _ in range(7):
            for a in range(7):
                for b in range(7):
                    if place[a] < place[b] and ordinal(times[a]) > ordinal(times[b]):
                        place[a], place[b] = place[b], place[a]
        bars = " ".join(f"{time}={min(round(hundredths(time)), most)}" for time in times)
        order = "".join(str(place.index(at)) for at in range(7))
        text += f"{row} {most} {bars} {order}" + CR_LF
    return text


# New targets


def new_targets(page, fixed):
    """targets.txt from the downloaded page and targets_old.txt."""
    times = [""] * LEVELS
    start = 1
    for level in range(LEVELS // 2):
        for index in (level, level + LEVELS // 2):
            at = instr(page, MARKER, start)
            times[index] = mid(page, at + len(MARKER), 7)
            start = at + 5
    records = []
    for time in times:
        for mark in "<>/":
            time = time.replace(mark, "")
        front = {5: "00:", 7: "0"}.get(len(time), "")
        records.append((front + time).replace(",", ":"))
    total = "00:00:00"
    for record in records:
        total = add_time(total, record)
    records.append(total)
    return "".join(record + "," + line + CR_LF for record, line in zip(records, lines_of(fixed)))
