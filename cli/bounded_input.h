// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace kavo {

/// What a call names to be read, and how messages name it.
struct NamedInput
{
    std::string name;
    std::string text;
};

/// Reads an ordinary file, /dev/fd/N or, where "-" is named, standard input (`in`) to its end. Throws RunTimeError as
/// readContent does, and CommandError for a stream that cannot be read to its end and for what is longer than
/// `largest` bytes, a multiple of 1 MiB: the input may be endless.
[[nodiscard]] NamedInput readInput(std::string_view file, std::FILE* in, std::size_t largest);

}  // namespace kavo
