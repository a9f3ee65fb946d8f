// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/output.h"

#include "cli/command_error.h"
#include "cli/printable.h"

#include <cerrno>

namespace kavo {

namespace {

constexpr std::string_view kProgramName = "kavo-timing-cli: ";

[[noreturn]] void failWriting()
{
    if (errno == EPIPE) throw OutputClosed();
    throw aboutStream("standard output", errno);
}

}  // namespace

void Output::write(std::string_view text)
{
    if (std::fwrite(text.data(), 1, text.size(), m_file) != text.size()) failWriting();
}

void Output::flush()
{
    if (std::fflush(m_file) != 0) failWriting();
}

void Messages::tell(std::string_view text)
{
    show(std::string(kProgramName).append(printable(text)).append("\n"));
}

void Messages::show(std::string_view text)
{
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), m_file));
    static_cast<void>(std::fflush(m_file));
}

}  // namespace kavo
