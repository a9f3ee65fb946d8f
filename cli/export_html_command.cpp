// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text_file.h"
#include "cli/command_factories.h"
#include "cli/report_output.h"
#include "reports/html_export.h"

namespace kavo {

namespace {

class ExportHtmlCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        return {
            option("--template", {.name = "TEMPLATE.ett", .kind = ValueKind::File}, &m_template, "the form"),
            argument(reportFileValue(), &m_file, kReportFileHelp),
        };
    }

    ExitStatus run(const CommandContext& context) override
    {
        const auto path = fileNamed(m_template);
        if (!fileExists(path)) throw RunTimeError(Failure::FileNotFound, path);
        // Silently read as far as it goes, but for a file that cannot be read at all: no report is replaced for that.
        const TemplateSections sections = loadTemplate({}, readFile(path));
        const std::time_t now = context.now();
        return writeReport(
            context, m_file,
            {.toLines = [&](const Session& session,
                            ReportLines& lines) { writeHtmlReport(session, sections, datesOf(now), lines); },
             .toFile = [&](Session& session,
                           const std::filesystem::path& file) { exportHtml(session, sections, now, file); }});
    }

private:
    std::string m_template;
    std::string m_file;
};

}  // namespace

std::unique_ptr<Command> makeExportHtmlCommand()
{
    return std::make_unique<ExportHtmlCommand>();
}

}  // namespace kavo
