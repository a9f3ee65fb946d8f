// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace kavo::test {

/// Sets a variable of this process's environment, or takes it out, as long as it lives.
class EnvironmentValue final
{
public:
    /// Nothing takes the variable out.
    EnvironmentValue(const char* name, const char* value) : m_name(name)
    {
        if (const char* before = std::getenv(name)) m_before = before;
        put(value);
    }
    EnvironmentValue(const char* name, const std::string& value) : EnvironmentValue(name, value.c_str()) {}
    ~EnvironmentValue() { put(m_before ? m_before->c_str() : nullptr); }
    EnvironmentValue(const EnvironmentValue&) = delete;
    EnvironmentValue& operator=(const EnvironmentValue&) = delete;

private:
    void put(const char* value) const
    {
#ifdef _WIN32
        ::_putenv_s(m_name, value != nullptr ? value : "");  // an empty one is none there
#else
        if (value != nullptr)
            ::setenv(m_name, value, 1);
        else
            ::unsetenv(m_name);
#endif
    }

    const char* m_name;
    std::optional<std::string> m_before;
};

/// The clock on the user's wall ("KAVO-2" is UTC+2), as long as it lives.
class TimeZone final
{
public:
    explicit TimeZone(const char* zone) : m_zone("TZ", zone) { Reread::now(); }

private:
    struct Reread
    {
        ~Reread() { now(); }

        static void now()
        {
#ifdef _WIN32
            ::_tzset();
#else
            ::tzset();
#endif
        }
    };

    Reread m_atTheEnd;  // once the variable is what it was
    EnvironmentValue m_zone;
};

}  // namespace kavo::test
