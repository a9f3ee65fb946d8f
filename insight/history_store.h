// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/history_index.h"

#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kavo {

/// A remembered state: a statistics file as it once was.
struct RememberedState
{
    std::string name;  ///< of its file
    std::time_t moment = 0;
    FileMark mark;

    bool operator==(const RememberedState&) const = default;
};

enum class Remembering {
    Kept,
    KnownAlready,  ///< the very same bytes are remembered, under the name returned
    NotWhole,      ///< not a statistics file that a loading reads to its end
    TooLarge,
};

struct Remembered
{
    Remembering result = Remembering::Kept;
    std::string name;  ///< of the state, where there is one
};

inline constexpr std::uintmax_t kLargestState = 16U << 20U;  ///< bytes; the game's files have some thousands

/// A folder of remembered results: one file for each distinct state of a user's statistics file, named by
/// the UTC time at which it was first seen. What else lies in the folder, links and folders included, is
/// left alone. Several programs may use it at once.
class HistoryStore final
{
public:
    explicit HistoryStore(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    [[nodiscard]] const std::filesystem::path& folder() const { return m_folder; }

    /// Oldest first. None without a folder.
    [[nodiscard]] std::vector<RememberedState> states() const;

    /// The bytes of a state. Throws RunTimeError: FileNotFound when it is none, PathFileAccess.
    [[nodiscard]] std::string read(std::string_view name) const;

    /// Keeps a state unless it is remembered. The name is later than those of all other states, also when
    /// the clock has been put back, so that the order of the names is that of the states. Throws
    /// RunTimeError: PathFileAccess, also when another program keeps the folder for itself; DiskFull.
    [[nodiscard]] Remembered remember(std::string_view text, std::time_t now);

private:
    [[nodiscard]] std::optional<std::string> readIfPossible(std::string_view name) const;
    [[nodiscard]] std::optional<RememberedState> stateAt(const std::filesystem::path& file) const;
    [[nodiscard]] std::optional<std::string> findEqual(const std::vector<RememberedState>& states,
                                                       std::string_view text) const;
    [[nodiscard]] std::string freeName(const std::vector<RememberedState>& states, std::time_t now) const;
    [[nodiscard]] HistoryIndex readIndex() const;
    void addToIndex(std::string_view lines) const;
    void removeLeftovers() const;

    std::filesystem::path m_folder;
};

/// Remembers a statistics file as it is now. Throws RunTimeError(FileNotFound) where there is no ordinary
/// file, and as remember does.
[[nodiscard]] Remembered rememberFile(HistoryStore& history, const std::filesystem::path& statsFile, std::time_t now);

/// The names alone, for findState.
[[nodiscard]] std::vector<std::string> namesOf(const std::vector<RememberedState>& states);

}  // namespace kavo
