// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_factories.h"
#include "cli/loaded_results.h"
#include "cli/report_output.h"

#ifdef KAVO_HAS_XLSX
#include "insight/sheet_file.h"
#include "reports/report_dates.h"
#endif

namespace kavo {

namespace {

#ifdef KAVO_HAS_XLSX

std::string sheetOf(const Session& session, std::time_t now)
{
    return sheetFileOf(session, datesOf(now).date, now);
}

#else

std::string sheetOf(const Session&, std::time_t)
{
    throw CommandError("This program was built without libxlsxwriter and can write no .xlsx file");
}

#endif

class ExportSheetCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        return {argument({.name = "FILE.xlsx", .kind = ValueKind::File}, &m_file,
                         "the workbook, which is replaced; - is standard output")};
    }

    ExitStatus run(const CommandContext& context) override
    {
        const LoadedResults loaded = loadResults(context);
        tellMessages(loaded, context.messages);
        if (loaded.status() != kDone) return loaded.status();
        writeBytes(context, m_file, sheetOf(loaded.session, context.now()));
        return kDone;
    }

private:
    std::string m_file;
};

}  // namespace

std::unique_ptr<Command> makeExportSheetCommand()
{
    return std::make_unique<ExportSheetCommand>();
}

}  // namespace kavo
