// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/moment_text.h"

#include "reports/report_dates.h"

#include <array>

namespace kavo {

std::string momentText(std::time_t moment)
{
    const std::tm parts = localTime(moment);
    std::array<char, 32> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &parts);
    return {text.data(), length};
}

std::string minuteText(std::time_t moment)
{
    constexpr std::size_t kSeconds = 3;  // ":31"
    std::string text = momentText(moment);
    if (text.size() > kSeconds) text.resize(text.size() - kSeconds);
    return text;
}

}  // namespace kavo
