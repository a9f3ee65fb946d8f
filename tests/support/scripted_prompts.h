// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/prompts.h"

#include <queue>

#include <functional>

namespace kavo::test {

/// A dialog for a file: over which window, and with what it opens.
struct FileDialog
{
    QString window;  ///< by its object name
    FileQuestion question{};
};

/// Answers the boxes of a window test from a script. Each box must come in its turn and with the text
/// that the script names; a wrong text, an extra box and one that never came fail the test.
class ScriptedPrompts final : public Prompts
{
public:
    ScriptedPrompts() = default;
    ~ScriptedPrompts() override;
    ScriptedPrompts(const ScriptedPrompts&) = delete;
    ScriptedPrompts& operator=(const ScriptedPrompts&) = delete;

    /// `meanwhile` runs while the box would be on the screen.
    void expectMessage(const Message& message, std::function<void()> meanwhile = {});
    void expectYesNo(const Message& message, Answer answer);
    void expectLine(const LineQuestion& question, std::optional<QString> answer);
    void expectFileToOpen(const FileDialog& dialog, const QString& answer);
    void expectFileToSave(const FileDialog& dialog, const QString& answer);
    void expectColour(const QColor& preset, const QColor& answer);

    /// All boxes of the script have come.
    [[nodiscard]] bool isDone() const { return m_script.empty(); }

    void tell(QWidget* parent, const Message& message) override;
    Answer askYesNo(QWidget* parent, const Message& message) override;
    std::optional<QString> askLine(QWidget* parent, const LineQuestion& question) override;
    QString askFileToOpen(QWidget* parent, const FileQuestion& question) override;
    QString askFileToSave(QWidget* parent, const FileQuestion& question) override;
    QColor askColour(QWidget* parent, const QColor& preset) override;

private:
    struct Box
    {
        QString described;  ///< kind and every fixed text, as compared
        std::function<void()> meanwhile{};
        std::optional<QString> text{};
        Answer answer = Answer::No;
        QColor colour{};
    };

    void expect(Box box);
    Box take(const QString& described);

    std::queue<Box> m_script;
};

}  // namespace kavo::test
