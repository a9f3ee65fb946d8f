// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/program_folder_fixture.h"

#include "base/file_name.h"
#include "base/text.h"
#include "base/text_file.h"
#include "tests/support/places.h"

#include <algorithm>
#include <atomic>
#include <fstream>

#ifdef _WIN32
#include <process.h>
#include <windows.h>
#include <winioctl.h>
#else
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace kavo::test {

TemporaryFolder::TemporaryFolder()
{
    static std::atomic<int> number = 0;
    m_path = fs::temp_directory_path() / ("kavo-test-" + std::to_string(::getpid()) + "-" + std::to_string(++number));
    fs::remove_all(m_path);
    fs::create_directories(m_path);
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

fs::path TemporaryFolder::operator/(std::string_view name) const
{
    return (m_path / pathOf(name)).make_preferred();  // as the program writes it
}

void TemporaryFolder::write(std::string_view name, std::string_view content) const
{
    const fs::path path = *this / name;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

std::string TemporaryFolder::read(std::string_view name) const
{
    return readFile(*this / name);
}

bool TemporaryFolder::has(std::string_view name) const
{
    const fs::path path = *this / name;
    if (!fs::exists(path)) return false;
#ifdef _WIN32
    // There is a file of every spelling of its name.
    return std::ranges::any_of(fs::directory_iterator(path.parent_path()),
                               [&](const auto& entry) { return entry.path().filename() == path.filename(); });
#else
    return true;
#endif
}

void TemporaryFolder::enlarge(std::string_view name, std::uintmax_t size) const
{
    const fs::path path = *this / name;
#ifdef _WIN32
    // The library takes no size beyond 2 GB, and the system fills a file up that is not told to have gaps.
    const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, 0, nullptr);
    LARGE_INTEGER end{};
    end.QuadPart = static_cast<LONGLONG>(size);
    DWORD ignored = 0;
    const bool isLarge = ::DeviceIoControl(file, FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &ignored, nullptr) != 0 &&
                         ::SetFilePointerEx(file, end, nullptr, FILE_BEGIN) != 0 && ::SetEndOfFile(file) != 0;
    ::CloseHandle(file);
    if (!isLarge) throw std::runtime_error("cannot enlarge " + std::string(name));
#else
    std::ofstream(path, std::ios::app);
    fs::resize_file(path, size);
#endif
}

fs::path asCompared(const fs::path& path)
{
#ifdef _WIN32
    return pathOf(foldCase(textOf(path)));
#else
    return path;
#endif
}

void copyDemo(const TemporaryFolder& folder)
{
    const fs::path data = sourceFolder() / "data";
    fs::copy(data / "demo", folder.path(), fs::copy_options::recursive);
    for (const char* name : {"targets.txt", "targets_old.txt", "history.txt", "links.txt"})
        fs::copy(data / name, folder / name);
}

std::string statisticsText(const std::vector<std::string>& bestTimes)
{
    std::string text = "Statistics of player Alice\r\n\r\n";
    for (int level = 1; level <= kLevels; ++level) {
        const auto index = static_cast<std::size_t>(level) - 1;
        const std::string time = index < bestTimes.size() ? bestTimes[index] : "00:30:00 Alice";
        text += "Level " + std::to_string(level) + ", " + (level == 8 ? "Steppes" : "Track") + "\r\n";
        // An empty line after a header takes the line behind it along, so a level without a time has none.
        if (!time.empty()) text += time + "\r\n\r\n";
    }
    return text + "End of statistics\r\n";
}

std::string undrivenText()
{
    // The last level needs two empty lines behind it to have no time.
    return replaceAll(statisticsText(std::vector<std::string>(kLevels)), "End of statistics", kLineEnd);
}

std::string targetsText(std::string_view record)
{
    std::string text;
    for (int i = 1; i <= kTotalsRow; ++i) text.append(record).append("\r\n");
    return text;
}

AfterOptions HostRecord::openOptions()
{
    ++optionsOpened;
    return afterOptions;
}

}  // namespace kavo::test
