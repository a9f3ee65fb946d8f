// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/session.h"

#include <string>

namespace kavo {

/// What to do about a loading that failed because of who it was for: ": no user Nobody; there are Marek, Жанна".
/// Empty where the user is not the reason.
[[nodiscard]] std::string adviceOnUser(const Session& session);

}  // namespace kavo
