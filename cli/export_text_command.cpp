// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_factories.h"
#include "cli/report_output.h"
#include "reports/text_export.h"

namespace kavo {

namespace {

class ExportTextCommand final : public Command
{
public:
    std::vector<Option> options() override { return {argument(reportFileValue(), &m_file, kReportFileHelp)}; }

    ExitStatus run(const CommandContext& context) override
    {
        return writeReport(context, m_file, {.toLines = writeTextReport, .toFile = exportText});
    }

private:
    std::string m_file;
};

}  // namespace

std::unique_ptr<Command> makeExportTextCommand()
{
    return std::make_unique<ExportTextCommand>();
}

}  // namespace kavo
