// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/scripted_prompts.h"

#include "forms/screen_text.h"

#include <QDir>
#include <QWidget>
#include <gtest/gtest.h>

#include <utility>

namespace kavo::test {

namespace {

QString described(const QString& kind, const Message& message)
{
    const QString icon = message.icon == MessageIcon::Critical ? QString("critical ") : QString();
    return icon + kind + " [" + toScreen(message.title) + "] " + toScreen(message.text);
}

QString described(const LineQuestion& question)
{
    return "line [" + question.title + "] " + question.prompt + " (" + question.preset + ")";
}

QString described(const QString& kind, const FileDialog& dialog)
{
    const auto& [title, filters, startAt] = dialog.question;
    return kind + " over " + dialog.window + " [" + title + "] {" + filters.join(";;") + "} at " +
           QDir::fromNativeSeparators(startAt);
}

/// The window that a dialog is opened over.
QString windowOf(const QWidget* parent)
{
    if (parent == nullptr) return "no window";
    if (!parent->isWindow()) return parent->objectName() + ", no window";
    return parent->isVisible() ? parent->objectName() : parent->objectName() + ", hidden";
}

}  // namespace

ScriptedPrompts::~ScriptedPrompts()
{
    for (; !m_script.empty(); m_script.pop())
        ADD_FAILURE() << "never shown: " << qPrintable(m_script.front().described);
}

void ScriptedPrompts::expect(Box box)
{
    m_script.push(std::move(box));
}

ScriptedPrompts::Box ScriptedPrompts::take(const QString& described)
{
    if (m_script.empty()) {
        ADD_FAILURE() << "unexpected box: " << qPrintable(described);
        return {};
    }
    Box box = std::move(m_script.front());
    m_script.pop();
    EXPECT_EQ(qPrintable(described), std::string(qPrintable(box.described)));
    if (box.meanwhile) box.meanwhile();
    return box;
}

void ScriptedPrompts::expectMessage(const Message& message, std::function<void()> meanwhile)
{
    expect({.described = described("message", message), .meanwhile = std::move(meanwhile)});
}

void ScriptedPrompts::expectYesNo(const Message& message, Answer answer)
{
    expect({.described = described("question", message), .answer = answer});
}

void ScriptedPrompts::expectLine(const LineQuestion& question, std::optional<QString> answer)
{
    expect({.described = described(question), .text = std::move(answer)});
}

void ScriptedPrompts::expectFileToOpen(const FileDialog& dialog, const QString& answer)
{
    expect({.described = described("open", dialog), .text = answer});
}

void ScriptedPrompts::expectFileToSave(const FileDialog& dialog, const QString& answer)
{
    expect({.described = described("save", dialog), .text = answer});
}

void ScriptedPrompts::expectColour(const QColor& preset, const QColor& answer)
{
    expect({.described = "colour " + preset.name(), .colour = answer});
}

void ScriptedPrompts::tell(QWidget*, const Message& message)
{
    take(described("message", message));
}

Answer ScriptedPrompts::askYesNo(QWidget*, const Message& message)
{
    return take(described("question", message)).answer;
}

std::optional<QString> ScriptedPrompts::askLine(QWidget*, const LineQuestion& question)
{
    return take(described(question)).text;
}

QString ScriptedPrompts::askFileToOpen(QWidget* parent, const FileQuestion& question)
{
    return take(described("open", {windowOf(parent), question})).text.value_or(QString());
}

QString ScriptedPrompts::askFileToSave(QWidget* parent, const FileQuestion& question)
{
    return take(described("save", {windowOf(parent), question})).text.value_or(QString());
}

QColor ScriptedPrompts::askColour(QWidget*, const QColor& preset)
{
    return take("colour " + preset.name()).colour;
}

}  // namespace kavo::test
