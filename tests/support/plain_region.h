// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/environment.h"

#ifdef _WIN32
#include <array>
#include <windows.h>
#endif

namespace kavo::test {

#ifdef _WIN32

/// A form of the user's region, as long as this lives.
class RegionsForm final
{
public:
    RegionsForm(LCTYPE kind, const wchar_t* form) : m_kind(kind)
    {
        ::GetLocaleInfoW(LOCALE_USER_DEFAULT, kind, m_before.data(), static_cast<int>(m_before.size()));
        ::SetLocaleInfoW(LOCALE_USER_DEFAULT, kind, form);
    }
    ~RegionsForm() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, m_kind, m_before.data()); }
    RegionsForm(const RegionsForm&) = delete;
    RegionsForm& operator=(const RegionsForm&) = delete;

private:
    LCTYPE m_kind;
    std::array<wchar_t, 100> m_before{};
};

#endif

/// Reports have dates as 03/07/26 and times as 14:05:09, as long as this lives.
class PlainRegion final
{
public:
#ifdef _WIN32
    static constexpr const char* kReportMoment = "03/07/26 14:05:09";  ///< date and time of reportMoment()

private:
    RegionsForm m_date{LOCALE_SSHORTDATE, L"MM/dd/yy"};
    RegionsForm m_time{LOCALE_STIMEFORMAT, L"HH:mm:ss"};
#else
    static constexpr const char* kReportMoment = "Sat Mar  7 14:05:09 2026";  ///< date and time of reportMoment()

private:
    EnvironmentValue m_locale{"LC_ALL", "C"};
#endif
};

}  // namespace kavo::test
