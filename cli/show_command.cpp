// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_factories.h"
#include "cli/loaded_results.h"
#include "cli/report_json.h"
#include "cli/report_output.h"
#include "cli/table_print.h"
#include "core/filters.h"

namespace kavo {

namespace {

std::vector<std::string_view> filterNames()
{
    std::vector<std::string_view> names;
    for (const Grade& grade : grades()) names.insert(names.begin(), grade.name);
    names.push_back(kVictories);
    return names;
}

class ShowCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        const Value filter = {.name = "NAME", .kind = ValueKind::Choice, .choices = filterNames()};
        return {
            flag("--json", m_json, "print everything as one JSON object"),
            flag("--fit", m_fits, "shorten names, then grades, to the terminal's width (else COLUMNS, else 80)")
                .excluding("--json"),
            option("--filter1", filter, &m_filter1, "keep the rows of one grade of player 1"),
            option("--filter2", filter, &m_filter2, "keep the rows of one grade of player 2").excluding("--filter1"),
        };
    }

    ExitStatus run(const CommandContext& context) override
    {
        LoadedResults loaded = loadResults(context);
        ResultsTable& table = loaded.session.table;
        if (m_filter1) applyFilter(table, FilterSide::Player1, *m_filter1);
        if (m_filter2) applyFilter(table, FilterSide::Player2, *m_filter2);
        tellMessages(loaded, context.messages);
        if (m_json)
            writeJson(context, formatJson({loaded.session, loaded.result, loaded.messages}));
        else if (loaded.hasTable())
            writeTable(table, context);
        return loaded.status();
    }

private:
    void writeTable(const ResultsTable& table, const CommandContext& context) const
    {
        const Terminal& terminal = context.terminal;
        const auto width = m_fits ? std::optional(terminal.columns) : std::nullopt;
        context.out.write(formatTable(table, terminal.colours, width));
    }

    bool m_json = false;
    bool m_fits = false;
    std::optional<std::string> m_filter1;
    std::optional<std::string> m_filter2;
};

}  // namespace

std::unique_ptr<Command> makeShowCommand()
{
    return std::make_unique<ShowCommand>();
}

}  // namespace kavo
