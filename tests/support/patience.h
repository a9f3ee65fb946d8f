// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace kavo::test {

/// How long a test waits for what must come, in milliseconds: far longer than a busy machine takes.
inline constexpr int kPatience = 60'000;

}  // namespace kavo::test
