// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_name.h"
#include "base/text_file.h"
#include "cli/command_factories.h"
#include "cli/dashboard_text.h"
#include "cli/loaded_results.h"
#include "cli/option_parser.h"
#include "cli/report_output.h"
#include "insight/history_place.h"
#include "insight/private_folder.h"

namespace fs = std::filesystem;

namespace kavo {

namespace {

class DashboardCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        return {
            option("--output", {.name = "FILE", .kind = ValueKind::File}, &m_output,
                   "the page, which is replaced; - is standard output"),
            flag("--open", m_isToBeOpened, "show it in the browser"),
        };
    }

    ExitStatus run(const CommandContext& context) override
    {
        if (m_isToBeOpened && m_output == kStandardOutput)
            throw UsageError("--open needs a file, and standard output is none");
        const LoadedResults loaded = loadResults(context);
        tellMessages(loaded, context.messages);
        if (loaded.status() != kDone || !hasLevels(loaded)) return kEndedEarly;
        const std::string page = dashboardText(loaded.session, context.now());
        if (m_output == kStandardOutput) {
            context.out.write(page);
            return kDone;
        }
        const fs::path file = m_output ? fileNamed(*m_output) : ownFile(loaded.session);
        replaceFile(file, page);
        if (!m_output) context.out.write(textOf(file) + "\n");
        if (m_isToBeOpened) context.openDocument(file);
        return kDone;
    }

private:
    /// A loading without a statistics file goes through, and leaves an empty table.
    static bool hasLevels(const LoadedResults& loaded) { return loaded.session.table.rowCount() > 0; }

    static fs::path ownFile(const Session& session)
    {
        fs::path file = dashboardFile(historySources(), session.userFolder);
        makePrivateFolder(file.parent_path());
        return file;
    }

    std::optional<std::string> m_output;
    bool m_isToBeOpened = false;
};

}  // namespace

std::unique_ptr<Command> makeDashboardCommand()
{
    return std::make_unique<DashboardCommand>();
}

}  // namespace kavo
