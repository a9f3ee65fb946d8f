// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/run_time_error.h"

#include <string>

namespace kavo::test {

/// Text of the run-time error that an action ends with, or "no error".
template <typename Action>
std::string errorOf(Action action)
{
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.what();
    }
    return "no error";
}

}  // namespace kavo::test
