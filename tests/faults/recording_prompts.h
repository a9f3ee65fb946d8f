// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/prompts.h"
#include "forms/screen_text.h"

#include <cstdio>
#include <string>

namespace kavo::test {

/// One line on the standard output, at once: the process may be killed at any moment.
inline void say(const std::string& kind, QString text)
{
    static_cast<void>(std::printf("%s: %s\n", kind.c_str(), qPrintable(text.replace('\n', ' '))));
    static_cast<void>(std::fflush(stdout));
}

/// Prints every box that tells something, and answers those that ask with what was set before.
class RecordingPrompts final : public Prompts
{
public:
    QString line;  ///< answer of the input box
    QString file;  ///< answer of the file dialogs
    QColor colour = QColor(1, 2, 3);
    Answer yesNo = Answer::No;

    void tell(QWidget*, const Message& message) override { say("box", toScreen(message.text)); }
    Answer askYesNo(QWidget*, const Message& message) override
    {
        say("box", toScreen(message.text));
        return yesNo;
    }
    std::optional<QString> askLine(QWidget*, const LineQuestion&) override { return line; }
    QString askFileToOpen(QWidget*, const FileQuestion&) override { return file; }
    QString askFileToSave(QWidget*, const FileQuestion&) override { return file; }
    QColor askColour(QWidget*, const QColor&) override { return colour; }
};

}  // namespace kavo::test
