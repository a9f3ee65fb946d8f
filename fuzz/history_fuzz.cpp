// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// A history folder with random files in it: they stand in the input one after the other, with a line "=="
// between them, each with its name in the first line. The first part is a state to be remembered.

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "fuzz_input.h"
#include "insight/best_ever.h"
#include "insight/history_store.h"
#include "insight/state_name.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

using kavo::fuzz::require;

constexpr std::string_view kSeparator = "\n==\n";
constexpr std::time_t kMoment = 1795257991;

fs::path folderOfThisProcess()
{
    return fs::temp_directory_path() / ("kavo-fuzz-history-" + std::to_string(::getpid()));
}

std::string_view takeUpTo(std::string_view& text, std::string_view separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + separator.size(), text.size()));
    return part;
}

void write(const fs::path& folder, std::string_view part)
{
    const std::string_view name = takeUpTo(part, "\n");
    if (name.empty() || name.size() > 100 || !kavo::isPlainName(name)) return;
    std::FILE* file = std::fopen((folder / name).c_str(), "wb");
    if (file == nullptr) return;
    require(std::fwrite(part.data(), 1, part.size(), file) == part.size());
    std::fclose(file);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view input = kavo::fuzz::textOf(data, size);
    const fs::path folder = folderOfThisProcess();
    fs::remove_all(folder);
    fs::create_directories(folder);
    const std::string_view state = takeUpTo(input, kSeparator);
    while (!input.empty()) write(folder, takeUpTo(input, kSeparator));

    kavo::HistoryStore history(folder);
    const auto before = history.states();
    static_cast<void>(kavo::bestEverOf(history));
    static_cast<void>(kavo::findState(kavo::namesOf(before), state.substr(0, 40)));
    const kavo::Remembered first = history.remember(state, kMoment);
    if (first.result == kavo::Remembering::Kept || first.result == kavo::Remembering::KnownAlready) {
        require(history.read(first.name) == state);
        require(history.remember(state, kMoment).result == kavo::Remembering::KnownAlready);
    }
    const bool isNew = first.result == kavo::Remembering::Kept;
    require(history.states().size() == before.size() + (isNew ? 1 : 0));
    fs::remove_all(folder);
    return 0;
}
