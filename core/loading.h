// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/messages.h"
#include "core/session.h"

#include <optional>
#include <string>
#include <vector>

namespace kavo {

/// What the Options dialog left behind when a loading had opened it.
enum class AfterOptions { GoOn, Abandon };

/// The caller's side of a loading: the window shows what is asked, the command line prints it, a test
/// records it. Only showMessage and openOptions may run an event loop.
class LoadingHost
{
public:
    virtual ~LoadingHost() = default;

    virtual void showMessage(const Message& message) = 0;

    /// Opens the Options dialog, modally. Abandon: a new loading was asked for meanwhile, so this one
    /// does nothing more.
    [[nodiscard]] virtual AfterOptions openOptions() = 0;

    /// Values of `view.dat` in file order, as far as the file holds them; not called without the file.
    virtual void applyLayout(const std::vector<double>& values) = 0;

    /// The `view.dat` step is over, with or without a file.
    virtual void layoutLoaded() = 0;
};

enum class LoadingEnd { Completed, WrongFile, Abandoned, Error };

struct LoadingResult
{
    LoadingEnd end = LoadingEnd::Completed;
    std::string error = {};                ///< text of the error that ended the loading, else empty
    std::string errorInFull = {};          ///< the same with the file's whole path and the system's reason
    std::filesystem::path wrongFile = {};  ///< what is no statistics file, after WrongFile
};

struct LoadingOptions
{
    std::optional<std::string> user;  ///< instead of line 1 of `curUser.dat`
    bool makesFolders = true;         ///< whether a missing `colors` folder is made
};

/// The loading sequence: reads every file in its order and fills the session's table from the start. An
/// error, whichever, ends it where it stands and is returned, not thrown.
[[nodiscard]] LoadingResult load(Session& session, LoadingHost& host, const LoadingOptions& options = {});

/// The settings step: fills StatsPath, CompPath, CompCategory, the font size and the three names from
/// `data.ini` and `names.dat`, or with their defaults.
void Init(Session& session);

}  // namespace kavo
