// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "cli/bounded_input.h"
#include "cli/command_factories.h"
#include "core/targets.h"
#include "updater/records_page.h"

#include <vector>

namespace kavo {

namespace {

using Levels = std::vector<int>;  // in their order

/// "level 5", "levels 1, 7, 9 to 54"
std::string inWords(const Levels& levels)
{
    std::string text = levels.size() == 1 ? "level " : "levels ";
    for (std::size_t first = 0; first < levels.size();) {
        std::size_t last = first;
        while (last + 1 < levels.size() && levels[last + 1] == levels[last] + 1) ++last;
        if (last == first + 1) last = first;  // two are no range
        text.append(first == 0 ? "" : ", ").append(std::to_string(levels[first]));
        if (last > first) text.append(" to ").append(std::to_string(levels[last]));
        first = last + 1;
    }
    return text;
}

/// "53 of 54 records found, no time of the form MM:SS:HH for level 54"
std::string whatWasFound(const Levels& without)
{
    const int found = kLevels - static_cast<int>(without.size());
    if (without.empty()) return std::to_string(found) + " records found";
    return std::to_string(found) + " of " + std::to_string(kLevels) +
           " records found, no time of the form MM:SS:HH for " + inWords(without);
}

/// The world records that the targets hold so far, as far as they can be read; nothing without targets.
std::optional<TargetRecords> formerRecords(const std::filesystem::path& programFolder)
{
    ResultsState state;
    try {
        if (!LoadTargets(programFolder, state)) return std::nullopt;
    } catch (const RunTimeError&) {
        // Targets that end early are about to be replaced by whole ones.
    }
    return state.TargetWR;
}

Levels changedLevels(const TargetRecords& former, const TargetRecords& records)
{
    Levels changed;
    for (int level = 1; level <= kLevels; ++level)
        if (former[level] != records[level]) changed.push_back(level);
    return changed;
}

class UpdateTargetsCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        return {flag("--force", m_force, "write whatever the page gives, as the window does"),
                option("--page", {.name = "FILE", .kind = ValueKind::File}, &m_page,
                       "the downloaded page; - is standard input")};
    }

    ExitStatus run(const CommandContext& context) override
    {
        const auto folder = context.programFolder();
        const NamedInput page = readInput(m_page, context.in, kLargestPage);
        const TargetRecords records = worldRecords(cutRecordTimes(page.text));
        const Levels without = levelsWithoutTime(records);
        if (!without.empty() && !m_force)
            throw CommandError(page.name + ": " + whatWasFound(without) +
                               "; nothing was changed (--force writes what there is)");
        const auto former = formerRecords(folder);
        rewriteTargets(folder, records);
        tellChanges(context.messages, textOf(targetsFile(folder)) + ": " + whatWasFound(without), former, records);
        return kDone;
    }

private:
    static void tellChanges(Messages& messages, const std::string& found, const std::optional<TargetRecords>& former,
                            const TargetRecords& records)
    {
        if (!former) {
            messages.tell(found + "; there were no targets before");
            return;
        }
        const Levels changed = changedLevels(*former, records);
        messages.tell(found + "; " + (changed.empty() ? "none" : std::to_string(changed.size())) + " changed");
        for (const int level : changed) {
            const std::string& before = (*former)[level];
            messages.tell("level " + std::to_string(level) + ": " + (before.empty() ? "no time" : before) + " -> " +
                          records[level]);
        }
    }

    bool m_force = false;
    std::string m_page;
};

}  // namespace

std::unique_ptr<Command> makeUpdateTargetsCommand()
{
    return std::make_unique<UpdateTargetsCommand>();
}

}  // namespace kavo
