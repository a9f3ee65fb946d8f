// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

namespace kavo {

/// Where a report goes, line by line: a file, or standard output.
class ReportLines
{
public:
    virtual ~ReportLines() = default;

    /// Writes the text and CR LF behind it, also when the text ends with one of its own.
    virtual void write(std::string_view text) = 0;
};

}  // namespace kavo
