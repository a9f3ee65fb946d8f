// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <exception>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace kavo {

/// What can go wrong beyond the user's choices. Each has one standard text.
enum class Failure {
    InputPastEnd,
    FileNotFound,
    PathNotFound,
    InvalidCall,
    SubscriptOutOfRange,
    PathFileAccess,
    DiskFull,
    FileTooLarge,
    OutOfMemory,
};

[[nodiscard]] std::string_view standardText(Failure failure);

/// A failure on its way to whoever called: what() is the standard text, followed by a colon and the
/// file's name where a file is involved.
class RunTimeError final : public std::runtime_error
{
public:
    explicit RunTimeError(Failure failure);
    /// `reason` is the system's, where it was the system that failed.
    RunTimeError(Failure failure, const std::filesystem::path& file, const std::error_code& reason = {});
    /// What an error of the file system means.
    RunTimeError(const std::error_code& reason, const std::filesystem::path& file);

    [[nodiscard]] Failure failure() const noexcept { return m_failure; }

    /// The same failure with the file's name, unless one is named already.
    [[nodiscard]] RunTimeError about(const std::filesystem::path& file) const;

    /// The standard text with the file's whole path and the system's reason, as far as they are known.
    [[nodiscard]] std::string inFull() const;

private:
    Failure m_failure;
    std::shared_ptr<const std::filesystem::path> m_file;  ///< shared: an error on its way is copied and must not fail
    std::error_code m_reason;
};

/// The failure that an error of the file system means to the user.
[[nodiscard]] Failure failureOf(const std::error_code& error);

/// What the user is told about any error: a standard text where one fits it, else the error's own.
[[nodiscard]] std::string inWords(const std::exception& error);

/// The same with the file's whole path and the system's reason, as far as they are known: for where there is room for
/// a line.
[[nodiscard]] std::string inFull(const std::exception& error);

}  // namespace kavo
