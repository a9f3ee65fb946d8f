// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/open_file.h"

#include <filesystem>

namespace kavo {

/// A lock on a file between programs. It belongs to the open file, whatever that holds, so it ends with its
/// holder, however that ends, and what is left behind locks nobody out. Taking it never waits.
class FileLock final
{
public:
    enum class State {
        Held,
        Busy,         ///< somebody else has it
        Unavailable,  ///< no ordinary file can be opened there, or the file system has no locks
    };

    /// Makes the file when it is missing.
    explicit FileLock(const std::filesystem::path& path);
    /// Deletes the file again where the lock was held.
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    [[nodiscard]] State state() const { return m_state; }

private:
    [[nodiscard]] State attempt();

    std::filesystem::path m_path;
    OpenFile m_file;
    State m_state = State::Unavailable;
};

}  // namespace kavo
