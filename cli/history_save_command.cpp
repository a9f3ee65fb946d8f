// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_name.h"
#include "cli/command_factories.h"
#include "cli/loaded_results.h"
#include "cli/user_history.h"
#include "insight/history_place.h"

namespace kavo {

namespace {

class HistorySaveCommand final : public Command
{
public:
    ExitStatus run(const CommandContext& context) override
    {
        if (!isHistoryWanted(historySources())) throw CommandError("Nothing is remembered: KAVO_HISTORY is off");
        const LoadedResults loaded = loadResults(context);
        tellMessages(loaded, context.messages);
        if (loaded.status() != kDone) return loaded.status();
        const Session& session = loaded.session;
        const auto statsFile = locateTyped(session.programFolder, session.StatsPath);
        HistoryStore store = historyOf(session.userFolder);
        const Remembered remembered = rememberFile(store, statsFile, context.now());
        if (!tellRemembering(remembered, statsFile, context.messages)) return kEndedEarly;
        context.out.write(remembered.name + "\n");
        return kDone;
    }
};

}  // namespace

std::unique_ptr<Command> makeHistorySaveCommand()
{
    return std::make_unique<HistorySaveCommand>();
}

}  // namespace kavo
