// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdio>
#include <exception>
#include <string_view>

namespace kavo {

/// Whoever read standard output has left: the rest is wanted by nobody.
class OutputClosed final : public std::exception
{
public:
    [[nodiscard]] const char* what() const noexcept override { return "Output closed"; }
};

/// Standard output. What cannot be written is noticed: write() and flush() throw CommandError or OutputClosed.
class Output final
{
public:
    explicit Output(std::FILE* file) : m_file(file) {}

    void write(std::string_view text);
    void flush();

private:
    std::FILE* m_file;
};

/// Standard error, for people: each message is a line behind the program's name, without characters that
/// would act on a terminal. Where it cannot be written there is nobody to tell.
class Messages final
{
public:
    explicit Messages(std::FILE* file) : m_file(file) {}

    void tell(std::string_view text);

    /// A text of several lines as it stands.
    void show(std::string_view text);

private:
    std::FILE* m_file;
};

}  // namespace kavo
