// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/results_state.h"
#include "insight/statistics_times.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Following a statistics file while the game is running.
namespace kavo {

/// How long a file must have stayed the same before it is believed.
inline constexpr std::chrono::milliseconds kSettlingTime{300};

/// Tells from one look at a file after the other when it has come to rest. The game may rewrite it in place
/// or put another one there; it may be gone for a moment, or be half written for a long one.
class FileSettling final
{
public:
    /// Takes what was found at `now` (counted from anywhere, never backwards): the content, or nothing when
    /// there was none to be read. Returns whether the file has come to rest with another content than
    /// the last time: unchanged for the settling time, ending in a whole line and read to its end by a loading.
    [[nodiscard]] bool look(std::optional<std::string_view> content, std::chrono::milliseconds now);

    /// Whether a change has been seen within the settling time: the next look is then worth it at its end. A
    /// file that has stopped in the middle can wait for the game.
    [[nodiscard]] bool isMoving(std::chrono::milliseconds now) const;

    /// The content at the last rest; nothing before the first.
    [[nodiscard]] const std::optional<std::string>& content() const { return m_settled; }

private:
    std::optional<std::string> m_seen;
    std::chrono::milliseconds m_seenSince{};
    std::optional<std::string> m_settled;
};

/// Tells what each rest of the file has brought.
class ImprovementWatch final
{
public:
    /// A line for each level that is better than at the rest before; none for the first one. The text is that
    /// of a whole statistics file.
    [[nodiscard]] std::vector<std::string> take(std::string_view text, const ResultsState& targets);

private:
    std::optional<StatisticsTimes> m_before;
};

}  // namespace kavo
