// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/program_folder_fixture.h"

#include <cstdlib>
#include <optional>
#include <string>

namespace kavo::test {

/// A variable of this process's environment with another value for the length of a test.
class EnvironmentValue final
{
public:
    EnvironmentValue(const char* name, const std::string& value) : m_name(name)
    {
        if (const char* before = std::getenv(name)) m_before = before;
        ::setenv(name, value.c_str(), 1);
    }
    ~EnvironmentValue()
    {
        if (m_before)
            ::setenv(m_name, m_before->c_str(), 1);
        else
            ::unsetenv(m_name);
    }
    EnvironmentValue(const EnvironmentValue&) = delete;
    EnvironmentValue& operator=(const EnvironmentValue&) = delete;

private:
    const char* m_name;
    std::optional<std::string> m_before;
};

/// A place for remembered results that is empty at the beginning of a test, and gone at its end.
class HistoryHome final
{
public:
    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

private:
    TemporaryFolder m_folder;
    EnvironmentValue m_home{"XDG_STATE_HOME", m_folder.path().string()};
    EnvironmentValue m_wanted{"KAVO_HISTORY", ""};
};

}  // namespace kavo::test
