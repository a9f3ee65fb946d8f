// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/messages.h"

#include <QColor>
#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

namespace kavo {

struct LineQuestion
{
    QString title;
    QString prompt;
    QString preset;
};

struct FileQuestion
{
    QString title{};
    QStringList filters{};  ///< "Name (*.ext)" each; empty: all files
    QString startAt{};      ///< folder or file that the dialog opens on
};

enum class Answer { Yes, No };

/// The boxes that ask or tell the user something and wait for an answer.
class Prompts
{
public:
    virtual ~Prompts() = default;

    virtual void tell(QWidget* parent, const Message& message) = 0;
    [[nodiscard]] virtual Answer askYesNo(QWidget* parent, const Message& message) = 0;

    /// Nothing when cancelled.
    [[nodiscard]] virtual std::optional<QString> askLine(QWidget* parent, const LineQuestion& question) = 0;

    /// The chosen path; empty when cancelled.
    [[nodiscard]] virtual QString askFileToOpen(QWidget* parent, const FileQuestion& question) = 0;
    [[nodiscard]] virtual QString askFileToSave(QWidget* parent, const FileQuestion& question) = 0;

    /// The preset when cancelled.
    [[nodiscard]] virtual QColor askColour(QWidget* parent, const QColor& preset) = 0;
};

/// The real boxes.
class ScreenPrompts final : public Prompts
{
public:
    void tell(QWidget* parent, const Message& message) override;
    Answer askYesNo(QWidget* parent, const Message& message) override;
    std::optional<QString> askLine(QWidget* parent, const LineQuestion& question) override;
    QString askFileToOpen(QWidget* parent, const FileQuestion& question) override;
    QString askFileToSave(QWidget* parent, const FileQuestion& question) override;
    QColor askColour(QWidget* parent, const QColor& preset) override;
};

}  // namespace kavo
