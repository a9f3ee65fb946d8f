// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <memory>

namespace kavo {

/// Waits between the looks of a command that runs until the user ends it.
class Waiting
{
public:
    virtual ~Waiting() = default;

    /// Returns false, and at once, when the user wants the end. May return early.
    [[nodiscard]] virtual bool waitFor(std::chrono::milliseconds time) = 0;

    /// A clock that is never put back.
    [[nodiscard]] virtual std::chrono::milliseconds now() const = 0;
};

/// From now on Ctrl+C, and what else asks a program to end, is kept for waitFor().
[[nodiscard]] std::unique_ptr<Waiting> startWaiting();

}  // namespace kavo
