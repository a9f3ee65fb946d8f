// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_factories.h"
#include "cli/report_output.h"
#include "cli/user_history.h"

namespace kavo {

namespace {

class HistoryExportCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        return {
            argument(stateValue("WHEN"), &m_when, "a state's name, a date, latest, or latest~N for the Nth before it"),
            argument(reportFileValue(), &m_file, "the copy, which is replaced; - is standard output"),
        };
    }

    ExitStatus run(const CommandContext& context) override
    {
        const HistoryStore store = userHistory(context).store;
        writeBytes(context, m_file, store.read(stateMeant(store.states(), m_when)));
        return kDone;
    }

private:
    std::string m_when;
    std::string m_file;
};

}  // namespace

std::unique_ptr<Command> makeHistoryExportCommand()
{
    return std::make_unique<HistoryExportCommand>();
}

}  // namespace kavo
