// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/event_guard.h"

#include <QCoreApplication>

#include <cstdio>

namespace kavo {

void reportError(const std::exception& error)
{
    auto* reporter = dynamic_cast<ErrorReporter*>(QCoreApplication::instance());
    if (reporter == nullptr) throw;
    try {
        reporter->report(error);
    } catch (const std::exception&) {
        // Not even a box can be had any more.
        static_cast<void>(std::fprintf(stderr, "kavo-timing: %s\n", error.what()));
    }
}

}  // namespace kavo
