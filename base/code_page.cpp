// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/code_page.h"

#include "base/environment.h"
#include "base/text.h"

#include <algorithm>

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>
#endif

namespace kavo {

namespace {

constexpr unsigned kFirstUpper = 0x80;

/// Digits are a number of Windows or of a PC.
constexpr std::array<std::string_view, 41> kNames = {
    "1250",        "1251",        "1252",        "1253",        "1254",        "1255",       "1256",
    "1257",        "1258",        "437",         "737",         "775",         "850",        "852",
    "855",         "857",         "858",         "860",         "861",         "862",        "863",
    "865",         "866",         "869",         "koi8-r",      "koi8-u",      "iso-8859-1", "iso-8859-2",
    "iso-8859-3",  "iso-8859-4",  "iso-8859-5",  "iso-8859-6",  "iso-8859-7",  "iso-8859-8", "iso-8859-9",
    "iso-8859-10", "iso-8859-11", "iso-8859-13", "iso-8859-14", "iso-8859-15", "iso-8859-16"};

constexpr std::string_view kDefaultName = "1252";

/// From 0x80 to 0x9F; from there on a byte is its own value.
constexpr std::array<char32_t, 32> kWindows1252 = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr CodePage::UpperHalf upperHalfOf1252()
{
    CodePage::UpperHalf characters{};
    for (std::size_t i = 0; i < characters.size(); ++i)
        characters[i] = i < kWindows1252.size() ? kWindows1252[i] : static_cast<char32_t>(kFirstUpper + i);
    return characters;
}

/// Built in, so that nobody with texts of today waits for a table of yesterday's.
constexpr CodePage kWindows1252Page(kDefaultName, upperHalfOf1252());

const CodePage* inForce = nullptr;

bool isNumber(std::string_view name)
{
    return name.find_first_not_of("0123456789") == std::string_view::npos;
}

/// The name as it is listed, whatever prefix it was typed with.
std::string plainName(std::string_view typed)
{
    std::string name = foldCase(typed);
    for (const std::string_view prefix : {"windows-", "cp"})
        if (name.starts_with(prefix) && isNumber(name.substr(prefix.size()))) return name.substr(prefix.size());
    return name;
}

#ifdef _WIN32

/// The number that the system knows a code page by.
unsigned numberOf(std::string_view name)
{
    constexpr std::string_view kIso = "iso-8859-";
    constexpr unsigned kIsoNumbers = 28590;
    if (name == "koi8-r") return 20866;
    if (name == "koi8-u") return 21866;
    const bool isIso = name.starts_with(kIso);
    if (isIso) name.remove_prefix(kIso.size());
    return static_cast<unsigned>(integerOf(name)) + (isIso ? kIsoNumbers : 0);
}

/// Tells the characters of a code page from the system's tables.
class Decoder final
{
public:
    explicit Decoder(std::string_view name) : m_number(numberOf(name)) {}

    [[nodiscard]] bool isKnown() const { return ::IsValidCodePage(m_number) != 0; }

    /// Nothing for an unassigned byte.
    [[nodiscard]] std::optional<char32_t> character(char byte) const
    {
        std::array<wchar_t, 4> text{};
        const int length = ::MultiByteToWideChar(m_number, 0, &byte, 1, text.data(), static_cast<int>(text.size()));
        // What is unassigned comes as a character for private use.
        const bool isPrivate = text[0] >= 0xE000 && text[0] <= 0xF8FF;
        if (length != 1 || isPrivate || text[0] == 0xFFFD) return std::nullopt;
        return text[0];
    }

private:
    unsigned m_number;
};

#else

/// Tells the characters of a code page from the system's tables.
class Decoder final
{
public:
    explicit Decoder(std::string_view name)
        : m_state(::iconv_open("UTF-32BE", std::string(isNumber(name) ? "cp" : "").append(name).c_str()))
    {
    }
    ~Decoder()
    {
        if (isKnown()) ::iconv_close(m_state);
    }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    [[nodiscard]] bool isKnown() const
    {
        return m_state != reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr): iconv's own mark
    }

    /// Nothing for an unassigned byte.
    [[nodiscard]] std::optional<char32_t> character(char byte) const
    {
        constexpr auto kError = static_cast<std::size_t>(-1);
        std::array<char, 4> character{};
        char* in = &byte;
        char* out = character.data();
        std::size_t inLeft = 1;
        std::size_t outLeft = character.size();
        const bool isAssigned = ::iconv(m_state, &in, &inLeft, &out, &outLeft) != kError;
        // A letter that a mark may follow is held back until it is asked for.
        ::iconv(m_state, nullptr, nullptr, &out, &outLeft);
        if (!isAssigned || outLeft > 0) return std::nullopt;
        char32_t value = 0;
        for (const char part : character) value = (value << 8U) | static_cast<unsigned char>(part);
        return value;
    }

private:
    iconv_t m_state;
};

#endif

const std::string_view* findName(std::string_view typed)
{
    const auto* found = std::find(kNames.begin(), kNames.end(), plainName(typed));
    return found != kNames.end() ? found : nullptr;
}

std::string listOfNames()
{
    std::string list;
    for (const std::string_view name : kNames) list.append(list.empty() ? "" : ", ").append(name);
    return list;
}

}  // namespace

char32_t CodePage::character(unsigned byte) const
{
    return byte < kFirstUpper ? byte : m_upperHalf.at(byte - kFirstUpper);
}

const CodePage& windows1252()
{
    return kWindows1252Page;
}

std::optional<CodePage> findCodePage(std::string_view name)
{
    const std::string_view* listed = findName(name);
    if (listed == nullptr) return std::nullopt;
    if (*listed == kDefaultName) return windows1252();
    const Decoder decoder(*listed);
    if (!decoder.isKnown()) return std::nullopt;
    CodePage::UpperHalf characters{};
    for (unsigned i = 0; i < characters.size(); ++i) {
        const unsigned byte = kFirstUpper + i;
        characters.at(i) = decoder.character(static_cast<char>(byte)).value_or(byte);
    }
    return CodePage(*listed, characters);
}

std::span<const std::string_view> codePageNames()
{
    return kNames;
}

CodePage systemCodePage()
{
#ifdef _WIN32
    // Not the process's own: the programs ask for UTF-8, which says nothing of the files that others have written.
    DWORD number = 0;
    ::GetLocaleInfoEx(LOCALE_NAME_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                      reinterpret_cast<LPWSTR>(&number), sizeof number / sizeof(wchar_t));
    return findCodePage(std::to_string(number)).value_or(windows1252());
#else
    return windows1252();
#endif
}

CodePage chosenCodePage(const std::optional<std::string>& option)
{
    const auto wanted = option ? option : environmentValue("KAVO_CODE_PAGE");
    if (!wanted) return systemCodePage();
    const std::string& name = *wanted;
    if (auto codePage = findCodePage(name)) return *codePage;
    const std::string source = option ? "--code-page: " : "KAVO_CODE_PAGE: ";
    if (findName(name) != nullptr) throw UnknownCodePage(source + "this system does not have the code page " + name);
    throw UnknownCodePage(source + "unknown code page " + name + "; there are " + listOfNames());
}

CodePageInForce::CodePageInForce(const CodePage& codePage) : m_codePage(codePage)
{
    if (inForce != nullptr) throw std::logic_error("A code page is in force already");
    inForce = &m_codePage;
}

CodePageInForce::~CodePageInForce()
{
    inForce = nullptr;
}

const CodePage& codePageInForce()
{
    return inForce != nullptr ? *inForce : kWindows1252Page;
}

}  // namespace kavo
