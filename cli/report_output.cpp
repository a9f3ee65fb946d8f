// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/report_output.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_file.h"
#include "cli/printable.h"

namespace kavo {

namespace {

/// The very bytes of a report's file, but for a terminal, which is no file.
class OutputLines final : public ReportLines
{
public:
    explicit OutputLines(const CommandContext& context) : m_out(context.out), m_isTerminal(context.terminal.isTerminal)
    {
    }

    void write(std::string_view text) override
    {
        if (m_isTerminal)
            m_out.write(printableLines(text));
        else
            m_out.write(text);
        m_out.write(kLineEnd);
    }

private:
    Output& m_out;
    bool m_isTerminal;
};

}  // namespace

Value reportFileValue()
{
    return {.name = "FILE", .kind = ValueKind::File};
}

ExitStatus writeReport(const CommandContext& context, std::string_view file, const ReportWriters& writers)
{
    LoadedResults loaded = loadResults(context);
    tellMessages(loaded, context.messages);
    if (loaded.status() != kDone) return loaded.status();
    if (file == kStandardOutput) {
        OutputLines lines(context);
        writers.toLines(loaded.session, lines);
        return kDone;
    }
    const std::filesystem::path path = fileNamed(file);
    try {
        writers.toFile(loaded.session, path);
    } catch (const RunTimeError& error) {
        throw error.about(path);  // the report ends where it broke off
    }
    return kDone;
}

void writeJson(const CommandContext& context, std::string_view json)
{
    if (context.terminal.isTerminal)
        context.out.write(printableJson(json));
    else
        context.out.write(json);
}

void writeBytes(const CommandContext& context, std::string_view file, std::string_view bytes)
{
    if (file == kStandardOutput)
        context.out.write(bytes);
    else
        replaceFile(fileNamed(file), bytes);
}

}  // namespace kavo
