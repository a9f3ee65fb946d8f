// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

/// The 8-bit code pages of players' old files: how bytes that are no UTF-8 are shown.
namespace kavo {

/// What the bytes of a single-byte code page stand for. Below 0x80 all of them are ASCII.
class CodePage final
{
public:
    using UpperHalf = std::array<char32_t, 128>;  ///< characters of the bytes 0x80 to 0xFF

    constexpr CodePage(std::string_view name, const UpperHalf& upperHalf) : m_name(name), m_upperHalf(upperHalf) {}

    /// As codePageNames() lists it.
    [[nodiscard]] std::string_view name() const { return m_name; }

    /// A byte that is unassigned in the code page keeps its own value.
    [[nodiscard]] char32_t character(unsigned byte) const;

private:
    std::string_view m_name;
    UpperHalf m_upperHalf;
};

/// The code page unless another one is asked for.
[[nodiscard]] const CodePage& windows1252();

/// The code page of a name: "1251" or "koi8-r", also "cp1251" or "windows-1251", in any case of letters. Nothing
/// for any other name, and where the system does not have that code page.
[[nodiscard]] std::optional<CodePage> findCodePage(std::string_view name);

/// All names without their prefixes: "1251", "koi8-r".
[[nodiscard]] std::span<const std::string_view> codePageNames();

/// The code page that old programs of this computer write: on Windows the system's own, as far as it is one of
/// codePageNames(), elsewhere Windows-1252.
[[nodiscard]] CodePage systemCodePage();

/// A wish for a code page that there is not; what() says which there are.
class UnknownCodePage final : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The code page that the user asks for: by the option `--code-page`, else by KAVO_CODE_PAGE in the environment,
/// else the system's. Throws UnknownCodePage.
[[nodiscard]] CodePage chosenCodePage(const std::optional<std::string>& option);

/// Puts a code page in force as long as it lives. Like a locale it belongs to the whole process: each cell, name
/// and message box needs it on its way to a screen, nobody there could choose another one, and handing it through
/// all of them would say nothing. A program makes one before it shows anything and keeps it to its end, so that
/// nothing can change it in between: a second one beside it is a std::logic_error.
class CodePageInForce final
{
public:
    explicit CodePageInForce(const CodePage& codePage);
    ~CodePageInForce();
    CodePageInForce(const CodePageInForce&) = delete;
    CodePageInForce& operator=(const CodePageInForce&) = delete;

private:
    CodePage m_codePage;
};

/// Windows-1252 where none was put in force.
[[nodiscard]] const CodePage& codePageInForce();

}  // namespace kavo
