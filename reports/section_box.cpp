// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/section_box.h"

#include "base/run_time_error.h"
#include "base/shown_text.h"
#include "base/text.h"
#include "forms/event_guard.h"
#include "forms/screen_text.h"

#include <QPlainTextEdit>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kavo {

namespace {

/// The bytes that the first `units` of the shown text stand for: a line end is shown as one, a character
/// of four bytes as two.
std::size_t bytesBehind(std::string_view bytes, qsizetype units)
{
    ShownCharacters characters(bytes);
    while (!characters.atEnd() && units > 0) {
        const bool isLineEnd = bytes.substr(characters.position(), kLineEnd.size()) == kLineEnd;
        if (isLineEnd) characters.next();
        units -= characters.next().size() == 4 ? 2 : 1;
    }
    return characters.position();
}

qsizetype commonStart(const QString& a, const QString& b)
{
    const auto length = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
    return length > 0 && a.at(length - 1).isHighSurrogate() ? length - 1 : length;
}

/// Common end of what follows the common start.
qsizetype commonEnd(const QString& a, const QString& b, qsizetype start)
{
    const auto length = std::mismatch(a.rbegin(), a.rend() - start, b.rbegin(), b.rend() - start).first - a.rbegin();
    return length > 0 && a.at(a.size() - length).isLowSurrogate() ? length - 1 : length;
}

std::string typedBytes(QString text)
{
    for (const QChar lineEnd : {QChar(QChar::ParagraphSeparator), QChar(QChar::LineSeparator)})
        text.replace(lineEnd, "\r\n");
    return fromScreen(text);
}

bool isInWord(QChar unit)
{
    return unit.unicode() >= 0x80 && unit != QChar::ParagraphSeparator && unit != QChar::LineSeparator;
}

/// Whether an edit that has a unit at its edge cuts or joins the word beside it: a blank leaves that as it is.
bool cutsWord(const QString& text, qsizetype unit)
{
    return unit >= 0 && unit < text.size() && isInWord(text.at(unit));
}

/// Where a word begins that an edit from `start` on touches: such a word becomes UTF-8 as a whole.
qsizetype startOfWord(const QString& text, qsizetype start)
{
    while (start > 0 && isInWord(text.at(start - 1))) --start;
    return start;
}

/// The same from the end.
qsizetype endOfWord(const QString& text, qsizetype end)
{
    while (end > 0 && isInWord(text.at(text.size() - end))) --end;
    return end;
}

}  // namespace

SectionBox::SectionBox(QPlainTextEdit& box) : m_box(box)
{
    on(&box, &QPlainTextEdit::textChanged, this, &SectionBox::takeEdit);
}

void SectionBox::setBytes(std::string_view bytes)
{
    const QSignalBlocker blocker(m_box);
    m_box.setPlainText(wholeToScreen(bytes).replace("\r\n", "\n"));
    m_bytes = bytes;
    m_text = m_box.document()->toRawText();
}

/// Every edit replaces one stretch of the text; the bytes on both sides of it stay.
void SectionBox::takeEdit()
{
    // Not toPlainText: that turns no-break spaces into plain ones.
    const QString text = m_box.document()->toRawText();
    qsizetype start = commonStart(m_text, text);
    qsizetype end = commonEnd(m_text, text, start);
    if (!mayMixInWords(codePageInForce())) {
        if (cutsWord(m_text, start) || cutsWord(text, start)) start = startOfWord(text, start);
        if (cutsWord(m_text, m_text.size() - end - 1) || cutsWord(text, text.size() - end - 1))
            end = endOfWord(text, end);
    }
    const std::string_view before = m_bytes;
    m_bytes = std::string(before.substr(0, bytesBehind(before, start)))
                  .append(typedBytes(text.sliced(start, text.size() - end - start)))
                  .append(before.substr(bytesBehind(before, m_text.size() - end)));
    m_text = text;
}

void SectionBox::insert(const QString& text)
{
    QTextCursor cursor = m_box.textCursor();
    const int position = cursor.position();
    const int lineEndsBefore = cursor.blockNumber();  // count as two characters each
    if (position + lineEndsBefore > std::numeric_limits<std::int16_t>::max()) throw RunTimeError(Failure::InvalidCall);
    cursor.setPosition(position);
    cursor.insertText(text);
    m_box.setTextCursor(cursor);
    m_box.setFocus();
}

}  // namespace kavo
