// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/command.h"
#include "core/colour_set.h"
#include "core/results_state.h"
#include "insight/history_store.h"
#include "insight/statistics_times.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kavo {

/// The user that a call names, with what is remembered of their results, and what grades and colours them.
struct UserHistory
{
    std::filesystem::path userFolder;
    HistoryStore store;
    ResultsState targets;
    ColourSet colours;
};

/// The folder of the user that a call names. Throws CommandError, which says who there is.
[[nodiscard]] std::filesystem::path folderOfUser(const CommandContext& context);

/// Throws as folderOfUser does, and RunTimeError(PathNotFound) where there is no home.
[[nodiscard]] UserHistory userHistory(const CommandContext& context);

/// The history of a user whose folder is known. Throws RunTimeError(PathNotFound) where there is no home.
[[nodiscard]] HistoryStore historyOf(const std::filesystem::path& userFolder);

/// The argument that names a remembered state.
[[nodiscard]] Value stateValue(std::string_view name);

/// The name of the state that the user means by `when`. Throws CommandError, which says what there is.
[[nodiscard]] std::string stateMeant(const std::vector<RememberedState>& states, std::string_view when);

/// The times of a state. Throws RunTimeError where its file is none that was remembered.
[[nodiscard]] StatisticsTimes timesOfState(const HistoryStore& store, std::string_view name);

/// Tells what can be done where nothing is remembered.
void tellNothingRemembered(Messages& messages);

/// Tells, unless the state is remembered now, why it is not. Returns whether it is.
bool tellRemembering(const Remembered& remembered, const std::filesystem::path& statsFile, Messages& messages);

}  // namespace kavo
