// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/finding.h"

#include <string>

namespace kavo::test {

/// Findings in short, one a line: severity, line, byte, what is wrong.
[[nodiscard]] inline std::string inShort(const Findings& findings)
{
    std::string text;
    for (const Finding& finding : findings) {
        text += (text.empty() ? "" : "\n") + std::string(nameOf(finding.severity));
        if (finding.line > 0) text += " " + std::to_string(finding.line) + ":" + std::to_string(finding.byte);
        text += " " + finding.text;
    }
    return text;
}

}  // namespace kavo::test
