// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/targets.h"
#include "tests/support/program_folder_fixture.h"

namespace kavo::test {

/// Targets of 10, 20, 30, 40 and 50 seconds on every level.
inline ResultsState stateWithTargets()
{
    ResultsState state;
    parseTargets(targetsText(), state);
    return state;
}

}  // namespace kavo::test
