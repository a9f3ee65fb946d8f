// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/environment.h"

#include <cstdlib>

namespace kavo {

std::optional<std::string> environmentValue(const char* name)
{
    const char* value = std::getenv(name);
    if (value == nullptr || *value == '\0') return std::nullopt;
    return value;
}

}  // namespace kavo
