// A whole loading from a folder of random files: they stand in the input one after the other, with a line
// "==" between them, in the order of kFiles. What the loading leaves goes through every report.

#include "base/run_time_error.h"
#include "base/text_file.h"
#include "core/filters.h"
#include "core/loading.h"
#include "fuzz_input.h"
#include "reports/level_statistics.h"
#include "reports/statistics.h"
#include "reports/text_export.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kSeparator = "\n==\n";
constexpr std::array<const char*, 8> kFiles = {"Zoe/data.ini", "Zoe/names.dat", "Zoe/bugs.dat", "Zoe/colors/colors.ini",
                                               "Zoe/view.dat", "targets.txt",   "stats.txt",    "Zoe/1res.old"};

/// A folder of this process, removed at its end.
class Folder final
{
public:
    Folder() : m_path(fs::temp_directory_path() / ("kavo-fuzz-" + std::to_string(::getpid())))
    {
        fs::create_directories(m_path / "Zoe" / "colors");
    }

    ~Folder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }

    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    [[nodiscard]] const fs::path& path() const { return m_path; }

    /// The parts of the input as files; a part that is missing or empty is a file that is missing.
    void fill(std::string_view input) const
    {
        for (const char* name : kFiles) {
            const std::size_t end = std::min(input.find(kSeparator), input.size());
            write(m_path / name, input.substr(0, end));
            input.remove_prefix(std::min(end + kSeparator.size(), input.size()));
        }
    }

private:
    /// Without the care for a power cut that the program takes: it would be most of the time here.
    static void write(const fs::path& path, std::string_view content)
    {
        fs::remove(path);
        if (content.empty()) return;
        std::FILE* file = std::fopen(path.c_str(), "wb");
        kavo::fuzz::require(file != nullptr && std::fwrite(content.data(), 1, content.size(), file) == content.size());
        std::fclose(file);
    }

    fs::path m_path;
};

class QuietHost final : public kavo::LoadingHost
{
public:
    void showMessage(const kavo::Message&) override {}
    kavo::AfterOptions openOptions() override { return kavo::AfterOptions::GoOn; }
    void applyLayout(const std::vector<double>&) override {}
    void layoutLoaded() override {}
};

class DroppedLines final : public kavo::ReportLines
{
public:
    void write(std::string_view) override {}
};

void report(kavo::Session& session)
{
    DroppedLines lines;
    try {
        kavo::writeTextReport(session, lines);
    } catch (const kavo::RunTimeError& error) {
        kavo::fuzz::require(error.failure() == kavo::Failure::InvalidCall);
    }
    kavo::BarPlaces places;
    for (int level = 1; level <= kavo::kTotalsRow; ++level) {
        const kavo::LevelBars bars = kavo::barsOfLevel(session, level);
        for (const kavo::LevelBar& bar : bars.bars)
            kavo::fuzz::require(bar.length >= 0 && bar.length <= bars.maximum && bars.maximum > 0);
        places.AutoSwap(bars);
    }
    static_cast<void>(kavo::statisticsText(session.state, kavo::Side::Team));
    kavo::applyFilter(session.table, kavo::FilterSide::Player2, kavo::kVictories);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Folder folder;
    folder.fill(kavo::fuzz::textOf(data, size));
    kavo::Session session;
    session.programFolder = folder.path();
    QuietHost host;
    const auto result = kavo::load(session, host, {.user = "Zoe", .makesFolders = false});
    kavo::fuzz::require(result.error.empty() == (result.end != kavo::LoadingEnd::Error));
    kavo::fuzz::require(session.table.rowCount() <= kavo::kTotalsRow + 1);
    report(session);
    return 0;
}
