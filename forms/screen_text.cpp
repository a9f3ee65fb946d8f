#include "forms/screen_text.h"

#include "base/file_name.h"
#include "base/text.h"

namespace kavo {

QString toScreen(std::string_view bytes, std::size_t longest)
{
    const std::string_view shown = firstCharacters(bytes, longest);
    QString text = wholeToScreen(shown);
    return shown.size() < bytes.size() ? text.append(QChar(0x2026)) : text;
}

QString wholeToScreen(std::string_view bytes)
{
    return QString::fromStdString(toUtf8(bytes));
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

}  // namespace kavo
