// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/event_guard.h"
#include "forms/prompts.h"

#include <QApplication>

#include <exception>

namespace kavo {

/// The Qt application with the one place where stray errors end: each is shown in the standard error
/// report, and the program goes on.
class Application final : public QApplication, public ErrorReporter
{
    Q_OBJECT

public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    /// Shows the standard error report.
    void report(const std::exception& error) override;

    [[nodiscard]] Prompts& prompts() { return *m_prompts; }

    /// Puts other boxes in place of the real ones.
    void setPrompts(Prompts& prompts) { m_prompts = &prompts; }
    void restorePrompts() { m_prompts = &m_screenPrompts; }

private:
    ScreenPrompts m_screenPrompts;
    Prompts* m_prompts = &m_screenPrompts;
};

}  // namespace kavo
