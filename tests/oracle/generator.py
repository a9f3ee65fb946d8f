# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Random program folders, most of them with something odd."""

import os

GRADES = ["World Record", "World Class", "Professional", "Good", "OK", "Beginner", "Nonsense", ""]
DRIVERS = ["Alice", "Bob", "J\udcfcrgen", "Жанна", "Level King", "LevelQueen", "", "  two words  ", "日本", "🏁", "\udc80\udcff"]


class Generator:
    def __init__(self, random, folder):
        self.random = random
        self.folder = folder

    def chance(self, share):
        return self.random.random() < share

    def pick(self, *choices):
        return self.random.choice(choices)

    def write(self, path, text):
        if self.chance(0.03):
            path = path.upper() if self.chance(0.5) else path.title()
        full = os.path.join(self.folder, path)
        os.makedirs(os.path.dirname(full), exist_ok=True)
        with open(full, "wb") as file:
            file.write(text.encode("utf-8", "surrogateescape"))

    def time(self):
        if self.oddness and self.chance(self.oddness):
            return self.pick("", "1:2:3", "SKIPPED", "99:59:99", "75:00:00", "xx:yy:zz", "00:60:60", "12.34.56",
                             "5.5.5.55", "00:00:00", "ЖЖ:ЖЖ:ЖЖ", "1e:2e:3e", " 1: 2: 3", "0\t:11:22", "00:00")
        high = self.longest * 6000
        value = self.random.randrange(high)
        return f"{value // 6000:02}:{value // 100 % 60:02}:{value % 100:02}"

    def time_line(self):
        line = self.time() + self.pick(" ", " ", " ", "-", "") + self.pick(*self.drivers)
        if not self.chance(self.oddness):
            return line
        return self.pick("", " ", "  ", "x", "Ж", "\udcff", "xЖ", "   " + line + " ", "\n" + line, "\r" + line,
                         line[:7], line[:8], "Ж\r\n" + line, "\r\n" + line, line + "\r")

    def statistics(self):
        self.oddness = self.pick(0, 0, 0.02, 0.1, 0.4)
        self.longest = self.pick(1, 2, 6, 90)
        self.drivers = DRIVERS if self.chance(0.3) else DRIVERS[:4]
        end = "\n" if self.chance(0.02) else "\r\n"
        text = self.pick("The game's players", "PLAYER", "Main player: Bob", "Player Steppes") + end
        if self.chance(0.03):
            text = "statistics" + end
        count = self.pick(54, 54, 54, 54, 54, 54, 55, 53, 20) if self.chance(0.5) else 54
        for level in range(1, count + 1):
            text += self.pick("", "", "", end, "** ", "level ") if self.oddness else ""
            name = self.pick("Track", "Warm Up", "Жабий пруд", "Level Level 2", "\udce9tude")
            text += f"Level {level}, " + ("Windy Steppes" if level == 8 else name) + end
            if self.chance(0.1):
                text += self.pick("", end) if self.oddness else ""
                continue
            text += self.time_line() + end
            for _ in range(self.pick(0, 0, 1, 3)):
                text += self.time_line() + end
            text += self.pick("", end)
        if self.chance(0.9):
            text += "End of statistics" + end
        elif self.chance(0.5):
            text = text.rstrip("\r\n")
        if self.chance(0.04):
            text = text.replace("Steppes", "Prairie")
        return text

    def targets(self):
        self.oddness = self.pick(0, 0, 0, 0.05)
        self.longest = self.pick(1, 2, 50)
        records = []
        for _ in range(55):
            times = sorted(self.time() for _ in range(5))
            records.append(times if self.chance(0.9) else list(reversed(times)))
        fields = [field for record in records for field in record]
        if self.chance(0.3):
            fields = [field.replace(":", ".") for field in fields]
        if self.chance(0.2):
            fields = [self.pick(f'"{field}"', f" {field} ", field, f' "{field}" ') for field in fields]
        if self.chance(0.05):
            fields = fields[: self.random.randrange(275)]
        if self.chance(0.1):
            fields += ["00:00:01"] * 5
        if self.chance(0.2):
            return "".join(field + self.pick(",", "\r\n", "\n") for field in fields)
        lines = [",".join(fields[i : i + 5]) for i in range(0, len(fields), 5)]
        return "".join(line + "\r\n" for line in lines)

    def settings(self, user):
        stats = self.pick("stats.txt", "stats.txt", "stats.txt", "game\\stats.txt", "STATS.TXT", "", "none.txt",
                          os.path.join(self.folder, "stats.txt"))
        method = self.pick(" 1 ", " 2 ", " 2 ", " 3 ", " 3 ", "2", "3", "1", "0", "7", "", "x", "2.4")
        other = self.pick("other.txt", "other.txt", "other.txt", "stats.txt", "", "none.txt", "compwith", " compwith ",
                          user + "/1res.old", user + "/1RES.OLD")
        lines = [stats, method, other, self.pick(*GRADES), " 9 "]
        lines = lines[: self.pick(5, 5, 5, 5, 4, 4, 3, 2) if self.chance(0.5) else 5]
        end = self.pick("\r\n", "\r\n", "\n")
        text = end.join(lines)
        return text + (end if self.chance(0.95) else "")

    def bug_times(self):
        self.oddness = 0.1
        self.longest = 1
        first = self.pick("Player1", "player1", "PLAYER1", "Player1", "Player 1")
        lines = [first]
        for marker in ("Player2", None):
            for _ in range(self.pick(0, 1, 3, 10)):
                level = self.pick(0, 55, 99) if self.chance(0.01) else self.random.randrange(1, 55)
                lines.append(f"{level:02}" + self.pick(", ", ", ", "xx") + self.time())
            if marker and not self.chance(0.03):
                lines.append(self.pick(marker, marker.lower(), marker.upper()))
        return "".join(line + "\r\n" for line in lines)

    def colours(self):
        count = self.pick(9, 9, 4, 5, 8, 2, 1, 0)
        return "".join(f" {self.random.randrange(1 << self.pick(1, 24))} \r\n" for _ in range(count))

    def folder_of_user(self):
        """Writes everything; returns the nick."""
        user = self.pick("bob", "Жанна", " lead", "J\udcfcrgen", "0123456789")
        os.makedirs(os.path.join(os.fsencode(self.folder), os.fsencode(user)), exist_ok=True)
        optional = [("curUser.dat", lambda: user + "\r\n", 0.98), ("stats.txt", self.statistics, 0.97),
                    ("game/stats.txt", self.statistics, 0.5), ("other.txt", self.statistics, 0.9),
                    ("targets.txt", self.targets, 0.93), (f"{user}/data.ini", lambda: self.settings(user), 0.93),
                    (f"{user}/1res.old", self.statistics, 0.7), (f"{user}/bugs.dat", self.bug_times, 0.3),
                    (f"{user}/names.dat", self.names, 0.3), (f"{user}/colors/colors.ini", self.colours, 0.3)]
        for path, text, share in optional:
            if self.chance(share):
                self.write(path, text())
        return user

    def names(self):
        lines = [self.pick("Ann", "Player1", "", "J\udcfcrgen"), self.pick("Eve", "Player2", "Player1"), "Dust Devils"]
        return "".join(line + self.pick("\r\n", "\n") for line in lines[: self.pick(3, 3, 2, 1, 0)])
