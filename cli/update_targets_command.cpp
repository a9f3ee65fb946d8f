#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text_file.h"
#include "cli/command_factories.h"
#include "updater/records_page.h"

#include <array>

namespace kavo {

namespace {

constexpr std::string_view kStandardInput = "-";

constexpr std::size_t kLargestPage = std::size_t{4} << 20U;  ///< bytes, as in the updater's window

/// Everything up to the end, if that comes.
std::string readAll(std::FILE* in)
{
    constexpr std::size_t kReadSize = 1U << 16U;
    std::string text;
    for (std::size_t got = kReadSize; got == kReadSize;) {
        const std::size_t before = text.size();
        text.resize(before + kReadSize);
        got = std::fread(text.data() + before, 1, kReadSize, in);
        text.resize(before + got);
        if (text.size() > kLargestPage) throw RunTimeError(Failure::FileTooLarge, "standard input");
    }
    if (std::ferror(in) != 0) throw RunTimeError(Failure::PathFileAccess, "standard input");
    return text;
}

class UpdateTargetsCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        return {option("--page", {.name = "FILE", .kind = ValueKind::File}, &m_page,
                       "the downloaded page; - is standard input")};
    }

    ExitStatus run(const CommandContext& context) override
    {
        const auto folder = context.programFolder();
        const std::string page = m_page == kStandardInput
                                     ? readAll(context.in)
                                     : std::string(readContent(locate(pathOf(m_page)), kLargestPage).view());
        rewriteTargets(folder, worldRecords(cutRecordTimes(page)));
        return kDone;
    }

private:
    std::string m_page;
};

}  // namespace

std::unique_ptr<Command> makeUpdateTargetsCommand()
{
    return std::make_unique<UpdateTargetsCommand>();
}

}  // namespace kavo
