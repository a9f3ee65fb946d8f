// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_name.h"
#include "cli/columns.h"
#include "cli/command_factories.h"
#include "cli/insight_json.h"
#include "cli/report_output.h"
#include "cli/user_history.h"
#include "insight/moment_text.h"

namespace kavo {

namespace {

class HistoryCommand final : public Command
{
public:
    std::vector<Option> options() override { return {flag("--json", m_json, "print them as one JSON object")}; }

    ExitStatus run(const CommandContext& context) override
    {
        const HistoryStore store = userHistory(context).store;
        const std::vector<RememberedState> states = store.states();
        if (m_json) {
            writeJson(context, formatHistoryJson(store, states));
            return kDone;
        }
        if (states.empty()) tellNothingRemembered(context.messages);
        std::vector<PrintedRow> rows;
        rows.reserve(states.size());
        for (const RememberedState& state : states)
            rows.push_back({{.text = state.name},
                            {.text = momentText(state.moment)},
                            {.text = std::to_string(state.mark.size) + " bytes"}});
        context.out.write(formatColumns(std::move(rows), Colours::None));
        return kDone;
    }

private:
    bool m_json = false;
};

}  // namespace

std::unique_ptr<Command> makeHistoryCommand()
{
    return std::make_unique<HistoryCommand>();
}

}  // namespace kavo
