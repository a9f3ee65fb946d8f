// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/screen_text.h"

#include "base/file_name.h"
#include "base/shown_text.h"
#include "base/text.h"

namespace kavo {

namespace {

constexpr QChar kEllipsis(0x2026);

}  // namespace

QString toScreen(std::string_view bytes, std::size_t longest)
{
    const std::string_view shown = firstCharacters(bytes, longest);
    QString text = wholeToScreen(shown);
    return shown.size() < bytes.size() ? text.append(kEllipsis) : text;
}

QString pageToScreen(std::string_view bytes)
{
    const std::string_view shown = firstCharacters(bytes, kLongestPage);
    QString page;
    std::size_t start = 0;
    for (std::size_t end = shown.find('\n'); end != std::string_view::npos; end = shown.find('\n', start)) {
        page.append(toScreen(shown.substr(start, end - start))).append('\n');
        start = end + 1;
    }
    page.append(toScreen(shown.substr(start)));
    const bool isCut = shown.size() < bytes.size() && !page.endsWith(kEllipsis);
    return isCut ? page.append(kEllipsis) : page;
}

QString wholeToScreen(std::string_view bytes)
{
    return QString::fromStdString(toUtf8(bytes));
}

QString captionToScreen(std::string_view bytes)
{
    return toScreen(bytes, kLongestCaption).replace('&', "&&");
}

QString pathToScreen(const std::filesystem::path& path)
{
    return toScreen(std::string_view(textOf(path)));
}

std::string fromScreen(const QString& text)
{
    return text.toStdString();
}

std::string fromScreen(const QString& text, std::string_view offered)
{
    return text == toScreen(offered) ? std::string(offered) : fromScreen(text);
}

QString toolTipOf(const QStringList& lines)
{
    QStringList escaped;
    for (const QString& line : lines)
        if (!line.isEmpty()) escaped << line.toHtmlEscaped();
    if (escaped.isEmpty()) return {};
    return R"(<p style="white-space: pre">)" + escaped.join("<br>") + "</p>";
}

}  // namespace kavo
