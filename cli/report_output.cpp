#include "cli/report_output.h"

#include "base/file_name.h"
#include "base/text.h"

namespace kavo {

namespace {

constexpr std::string_view kStandardOutput = "-";

class OutputLines final : public ReportLines
{
public:
    explicit OutputLines(Output& out) : m_out(out) {}

    void write(std::string_view text) override
    {
        m_out.write(text);
        m_out.write(kLineEnd);
    }

private:
    Output& m_out;
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
        OutputLines lines(context.out);
        writers.toLines(loaded.session, lines);
    } else {
        writers.toFile(loaded.session, locate(pathOf(file)));
    }
    return kDone;
}

}  // namespace kavo
