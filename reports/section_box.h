// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

#include <string>
#include <string_view>

class QPlainTextEdit;

namespace kavo {

/// One section of a template in its editor box: the text that the user sees, and the bytes behind it.
/// Lines end with CR LF in the bytes; what is no UTF-8 stays as it was wherever the user does not edit it.
class SectionBox final : public QObject
{
    Q_OBJECT

public:
    /// The box must outlive this.
    explicit SectionBox(QPlainTextEdit& box);

    [[nodiscard]] const std::string& bytes() const { return m_bytes; }
    void setBytes(std::string_view bytes);

    /// Puts a text in at the cursor, which then stands behind it; a selection is not replaced. Throws
    /// RunTimeError(InvalidCall) beyond the 32,767 characters that a cursor position can count.
    void insert(const QString& text);

private:
    void takeEdit();

    QPlainTextEdit& m_box;
    std::string m_bytes;
    QString m_text;  ///< what the box showed for these bytes
};

}  // namespace kavo
