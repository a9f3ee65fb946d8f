// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/club_files.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text_file.h"
#include "core/messages.h"
#include "core/statistics_file.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <system_error>
#include <thread>
#include <tuple>
#include <utility>

namespace fs = std::filesystem;

namespace kavo {

namespace {

constexpr std::size_t kFilesAtOnce = 16;     // that a thread takes from the list
constexpr std::size_t kFilesForThread = 64;  // below that another thread costs more than it brings
constexpr std::size_t kMostThreads = 8;      // the disk has no more to give

/// What one thread has read.
struct Share
{
    explicit Share(const ResultsState& targets) : collector(targets) {}

    ClubCollector collector;
    std::vector<UnreadableFile> unreadable;
};

fs::path wholePath(const fs::path& file)
{
    std::error_code error;  // the working folder may have been deleted
    const fs::path whole = fs::absolute(file, error);
    return error ? file : whole;
}

void readInto(Share& share, const fs::path& file)
{
    const std::string name = textOf(file);
    const fs::path whole = wholePath(file);
    const auto leaveOut = [&](const std::string& reason, const std::string& inFull) {
        share.unreadable.push_back({name, reason, inFull});
    };
    try {
        if (!fileExists(whole)) throw RunTimeError(Failure::FileNotFound, whole);
        const FileContent content = readContent(whole);
        const std::string wrong(messages::kWrongFile);
        if (isStatisticsFile(content.view()))
            share.collector.add(content.view(), name);
        else
            leaveOut(wrong, wrong + ": " + textOf(whole));
    } catch (const RunTimeError& error) {
        leaveOut(std::string(standardText(error.failure())), error.about(whole).inFull());
    } catch (const std::exception& error) {
        leaveOut(error.what(), std::string(error.what()) + ": " + textOf(whole));
    }
}

std::size_t threadsFor(std::size_t files)
{
    const std::size_t processors = std::max<std::size_t>(1, std::thread::hardware_concurrency());
    return std::clamp<std::size_t>(files / kFilesForThread, 1, std::min(processors, kMostThreads));
}

void addFilesOf(const fs::path& folder, std::vector<fs::path>& files)
{
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (textOf(entry->path().filename()).front() != '.' && entry->is_regular_file(ignored))
            files.push_back(entry->path());
    }
    if (error) files.push_back(folder);  // to be named as what cannot be read
}

}  // namespace

std::vector<fs::path> clubFiles(const std::vector<fs::path>& places)
{
    std::vector<fs::path> files;
    for (const fs::path& place : places) {
        std::error_code ignored;  // where it cannot be told, reading says why
        if (fs::is_directory(place, ignored))
            addFilesOf(place, files);
        else
            files.push_back(place);
    }
    return files;
}

ClubReading readClub(const std::vector<fs::path>& files, const ResultsState& targets)
{
    std::vector<Share> shares(threadsFor(files.size()), Share(targets));
    std::atomic<std::size_t> next = 0;
    const auto work = [&files, &next](Share& share) {
        for (std::size_t from = next.fetch_add(kFilesAtOnce); from < files.size(); from = next.fetch_add(kFilesAtOnce))
            for (std::size_t i = from; i < std::min(from + kFilesAtOnce, files.size()); ++i) readInto(share, files[i]);
    };
    {
        std::vector<std::jthread> threads;
        try {
            for (std::size_t i = 1; i < shares.size(); ++i) threads.emplace_back(work, std::ref(shares[i]));
        } catch (const std::system_error&) {
            // The system gives no more threads: those that there are do all the work.
        }
        work(shares.front());
    }
    ClubReading reading{shares.front().collector.finish(), std::move(shares.front().unreadable)};
    for (std::size_t i = 1; i < shares.size(); ++i) {
        reading.part = joined(std::move(reading.part), shares[i].collector.finish());
        std::move(shares[i].unreadable.begin(), shares[i].unreadable.end(), std::back_inserter(reading.unreadable));
    }
    std::sort(reading.unreadable.begin(), reading.unreadable.end(),
              [](const UnreadableFile& a, const UnreadableFile& b) {
                  return std::tie(a.file, a.reason) < std::tie(b.file, b.reason);
              });
    return reading;
}

}  // namespace kavo
