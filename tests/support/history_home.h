// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/environment.h"
#include "tests/support/program_folder_fixture.h"

namespace kavo::test {

/// A place for remembered results that is empty at the beginning of a test, and gone at its end.
class HistoryHome final
{
public:
    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

private:
#ifdef _WIN32
    static constexpr const char* kHome = "LOCALAPPDATA";
#else
    static constexpr const char* kHome = "XDG_STATE_HOME";
#endif

    TemporaryFolder m_folder;
    EnvironmentValue m_home{kHome, m_folder.path().string()};
    EnvironmentValue m_wanted{"KAVO_HISTORY", ""};
};

}  // namespace kavo::test
