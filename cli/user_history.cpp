// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/user_history.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "cli/user_advice.h"
#include "core/targets.h"
#include "core/users.h"
#include "insight/history_place.h"
#include "insight/state_name.h"

namespace kavo {

namespace {

constexpr std::string_view kNothingRemembered =
    "Nothing is remembered yet: kavo-timing-cli history save remembers the results of today";

}  // namespace

std::filesystem::path folderOfUser(const CommandContext& context)
{
    Session session;
    session.programFolder = context.programFolder();
    try {
        session.UserName = context.user ? *context.user : readCurrentUser(session.programFolder);
        std::filesystem::path folder = userFolder(session.programFolder, session.UserName);
        if (!folderExists(folder)) throw RunTimeError(Failure::PathNotFound, folder);
        return folder;
    } catch (const RunTimeError& error) {
        throw CommandError(error.inFull() + adviceOnUser(session));
    }
}

UserHistory userHistory(const CommandContext& context)
{
    const std::filesystem::path folder = folderOfUser(context);
    UserHistory history{
        .userFolder = folder, .store = historyOf(folder), .targets = {}, .colours = readTableColours(folder)};
    static_cast<void>(LoadTargets(context.programFolder(), history.targets));  // without them everybody is a Beginner
    return history;
}

HistoryStore historyOf(const std::filesystem::path& userFolder)
{
    return HistoryStore(historyFolder(historyRoot(historySources()), userFolder));
}

Value stateValue(std::string_view name)
{
    return {.name = name, .kind = ValueKind::Text};
}

std::string stateMeant(const std::vector<RememberedState>& states, std::string_view when)
{
    if (states.empty()) throw CommandError(std::string(kNothingRemembered));
    if (const auto name = findState(namesOf(states), when)) return *name;
    throw CommandError("No remembered state is " + std::string(when) + "; there are " + std::to_string(states.size()) +
                       ", from " + states.front().name + " to " + states.back().name + ": kavo-timing-cli history");
}

StatisticsTimes timesOfState(const HistoryStore& store, std::string_view name)
{
    const std::string text = store.read(name);
    try {
        return parseStatisticsTimes(text);
    } catch (const RunTimeError& error) {
        throw error.about(store.folder() / pathOf(name));
    }
}

void tellNothingRemembered(Messages& messages)
{
    messages.tell(kNothingRemembered);
}

bool tellRemembering(const Remembered& remembered, const std::filesystem::path& statsFile, Messages& messages)
{
    switch (remembered.result) {
    case Remembering::Kept:
    case Remembering::KnownAlready: return true;
    case Remembering::NotWhole: messages.tell(textOf(statsFile) + " is not remembered: it cannot be loaded"); break;
    case Remembering::TooLarge: messages.tell(textOf(statsFile) + " is not remembered: it is too large"); break;
    }
    return false;
}

}  // namespace kavo
