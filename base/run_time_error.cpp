// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"

#include "base/file_name.h"

#include <cerrno>
#include <new>

namespace kavo {

namespace {

std::string textAbout(Failure failure, const std::filesystem::path& file)
{
    std::string text(standardText(failure));
    const std::string name = textOf(file.filename());
    if (!name.empty()) text.append(": ").append(name);
    return text;
}

/// The system's word on a file that is said to be missing.
std::error_code whyMissing(Failure failure, const std::filesystem::path* file)
{
    std::error_code reason;
    const bool isMissing = failure == Failure::FileNotFound || failure == Failure::PathNotFound;
    if (isMissing && file != nullptr && file->is_absolute()) static_cast<void>(std::filesystem::status(*file, reason));
    return reason;
}

}  // namespace

std::string_view standardText(Failure failure)
{
    switch (failure) {
    case Failure::InputPastEnd: return "Input past end of file";
    case Failure::FileNotFound: return "File not found";
    case Failure::PathNotFound: return "Path not found";
    case Failure::InvalidCall: return "Invalid procedure call or argument";
    case Failure::SubscriptOutOfRange: return "Subscript out of range";
    case Failure::PathFileAccess: return "Path/File access error";
    case Failure::DiskFull: return "Disk full";
    case Failure::FileTooLarge: return "File too large";
    case Failure::OutOfMemory: return "Out of memory";
    }
    return {};
}

RunTimeError::RunTimeError(Failure failure) : std::runtime_error(std::string(standardText(failure))), m_failure(failure)
{
}

RunTimeError::RunTimeError(Failure failure, const std::filesystem::path& file, const std::error_code& reason)
    : std::runtime_error(textAbout(failure, file)),
      m_failure(failure),
      m_file(std::make_shared<const std::filesystem::path>(file)),
      m_reason(reason)
{
}

RunTimeError::RunTimeError(const std::error_code& reason, const std::filesystem::path& file)
    : RunTimeError(failureOf(reason), file, reason)
{
}

RunTimeError RunTimeError::about(const std::filesystem::path& file) const
{
    return m_file ? *this : RunTimeError(m_failure, file, m_reason);
}

std::string RunTimeError::inFull() const
{
    std::string text(standardText(m_failure));
    if (m_file && !m_file->empty()) text.append(": ").append(textOf(*m_file));
    if (const std::error_code reason = m_reason ? m_reason : whyMissing(m_failure, m_file.get()))
        text.append(" (").append(reason.message()).append(")");
    return text;
}

Failure failureOf(const std::error_code& error)
{
    if (error == std::errc::no_space_on_device || error == std::errc::file_too_large) return Failure::DiskFull;
#ifndef _WIN32
    if (error.value() == EDQUOT) return Failure::DiskFull;
#endif
    if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory)
        return Failure::PathNotFound;
    if (error == std::errc::not_enough_memory) return Failure::OutOfMemory;
    return Failure::PathFileAccess;
}

std::string inWords(const std::exception& error)
{
    // A text longer than any can be is one that there is no memory for.
    const bool isMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr ||
                          dynamic_cast<const std::length_error*>(&error) != nullptr;
    if (isMemory) return std::string(standardText(Failure::OutOfMemory));
    if (const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&error))
        return textAbout(failureOf(file->code()), file->path1());
    if (const auto* system = dynamic_cast<const std::system_error*>(&error)) return system->code().message();
    return error.what();
}

std::string inFull(const std::exception& error)
{
    if (const auto* known = dynamic_cast<const RunTimeError*>(&error)) return known->inFull();
    if (const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&error))
        return RunTimeError(file->code(), file->path1()).inFull();
    return inWords(error);
}

}  // namespace kavo
