// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/history_store.h"

#include "base/atomic_file.h"
#include "base/file_lock.h"
#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text_file.h"
#include "insight/fingerprint.h"
#include "insight/private_folder.h"
#include "insight/state_name.h"
#include "insight/statistics_times.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <memory>
#include <thread>

namespace fs = std::filesystem;

namespace kavo {

namespace {

// Names of no state, so that they are never taken for one.
constexpr const char* kLockName = "lock";
constexpr const char* kIndexName = "index";

constexpr auto kPatience = std::chrono::seconds(10);  // with another program that remembers something
constexpr auto kBetweenAttempts = std::chrono::milliseconds(5);
constexpr std::uintmax_t kLargestIndex = 16U << 20U;  // bytes; beyond that it holds more rubbish than entries

/// The lock of the folder, once nobody else has it.
std::unique_ptr<FileLock> lockFolder(const fs::path& folder)
{
    const auto end = std::chrono::steady_clock::now() + kPatience;
    for (;;) {
        auto lock = std::make_unique<FileLock>(folder / kLockName);
        if (lock->state() != FileLock::State::Busy) return lock;
        if (std::chrono::steady_clock::now() >= end) throw RunTimeError(Failure::PathFileAccess, folder / kLockName);
        std::this_thread::sleep_for(kBetweenAttempts);
    }
}

}  // namespace

std::optional<RememberedState> HistoryStore::stateAt(const fs::path& file) const
{
    std::string name = textOf(file.filename());
    const auto moment = momentOfState(name);
    if (!moment) return std::nullopt;
    const auto mark = markOf(file);
    if (!mark || mark->size > kLargestState) return std::nullopt;
    return RememberedState{std::move(name), *moment, *mark};
}

std::vector<RememberedState> HistoryStore::states() const
{
    std::vector<RememberedState> states;
    std::error_code error;
    for (fs::directory_iterator entry(m_folder, error), end; !error && entry != end; entry.increment(error))
        if (auto state = stateAt(entry->path())) states.push_back(*std::move(state));
    std::sort(states.begin(), states.end(),
              [](const RememberedState& a, const RememberedState& b) { return a.name < b.name; });
    return states;
}

std::string HistoryStore::read(std::string_view name) const
{
    const fs::path file = m_folder / pathOf(name);
    if (!momentOfState(name) || !stateAt(file)) throw RunTimeError(Failure::FileNotFound, file);
    return readFile(file);
}

std::optional<std::string> HistoryStore::readIfPossible(std::string_view name) const
{
    try {
        return read(name);
    } catch (const RunTimeError&) {
        return std::nullopt;  // a state that somebody has made unreadable equals no other
    }
}

Remembered HistoryStore::remember(std::string_view text, std::time_t now)
{
    if (text.size() > kLargestState) return {Remembering::TooLarge, {}};
    if (!isWholeStatisticsFile(text)) return {Remembering::NotWhole, {}};
    makePrivateFolder(m_folder);
    const auto lock = lockFolder(m_folder);
    // Without locks (some network drives) two programs may keep the same state twice, and no more than that.
    if (lock->state() == FileLock::State::Held) removeLeftovers();
    const std::vector<RememberedState> known = states();
    if (auto name = findEqual(known, text)) return {Remembering::KnownAlready, *std::move(name)};
    std::string name = freeName(known, now);
    const fs::path file = m_folder / pathOf(name);
    replaceFile(file, text);
    if (const auto state = stateAt(file)) addToIndex(HistoryIndex::line(name, state->mark, fingerprint(text)));
    return {Remembering::Kept, std::move(name)};
}

std::optional<std::string> HistoryStore::findEqual(const std::vector<RememberedState>& states,
                                                   std::string_view text) const
{
    // Mostly nothing has changed since the last time.
    if (!states.empty() && states.back().mark.size == text.size() && readIfPossible(states.back().name) == text)
        return states.back().name;
    const HistoryIndex index = readIndex();
    const std::uint64_t wanted = fingerprint(text);
    std::optional<std::string> found;
    std::string newLines;
    for (const RememberedState& state : states) {
        if (found || state.mark.size != text.size()) continue;
        const auto known = index.find(state.name, state.mark);
        if (known && *known != wanted) continue;
        const auto content = readIfPossible(state.name);
        if (content && !known) newLines += HistoryIndex::line(state.name, state.mark, fingerprint(*content));
        if (content == text) found = state.name;
    }
    addToIndex(newLines);
    return found;
}

std::string HistoryStore::freeName(const std::vector<RememberedState>& states, std::time_t now) const
{
    std::time_t moment = now;
    if (!states.empty() && states.back().moment < kLastMoment) moment = std::max(now, states.back().moment + 1);
    std::error_code ignored;
    while (fs::exists(fs::symlink_status(m_folder / stateName(moment), ignored))) {
        if (moment >= kLastMoment) throw RunTimeError(Failure::PathFileAccess, m_folder / stateName(moment));
        ++moment;
    }
    return stateName(moment);
}

HistoryIndex HistoryStore::readIndex() const
{
    const fs::path file = m_folder / kIndexName;
    const auto mark = markOf(file);
    if (!mark) return {};
    if (mark->size > kLargestIndex) {
        std::error_code ignored;
        fs::remove(file, ignored);
        return {};
    }
    return HistoryIndex::parse(readFile(file));
}

void HistoryStore::addToIndex(std::string_view lines) const
{
    // No care for a power cut: what is lost here is worked out again.
    const fs::path file = m_folder / kIndexName;
    std::error_code ignored;
    if (lines.empty() || (fs::exists(fs::symlink_status(file, ignored)) && !markOf(file))) return;
    std::ofstream(file, std::ios::binary | std::ios::app) << lines;
}

void HistoryStore::removeLeftovers() const
{
    std::error_code error;
    for (fs::directory_iterator entry(m_folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (isTemporaryName(entry->path()) && markOf(entry->path())) fs::remove(entry->path(), ignored);
    }
}

Remembered rememberFile(HistoryStore& history, const fs::path& statsFile, std::time_t now)
{
    std::error_code error;
    if (!fileExists(statsFile)) throw RunTimeError(Failure::FileNotFound, statsFile);
    if (fs::file_size(statsFile, error) > kLargestState) return {Remembering::TooLarge, {}};
    return history.remember(readFile(statsFile), now);
}

std::vector<std::string> namesOf(const std::vector<RememberedState>& states)
{
    std::vector<std::string> names;
    names.reserve(states.size());
    for (const RememberedState& state : states) names.push_back(state.name);
    return names;
}

}  // namespace kavo
