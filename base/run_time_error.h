#pragma once

#include <exception>
#include <filesystem>
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
    RunTimeError(Failure failure, const std::filesystem::path& file);

    [[nodiscard]] Failure failure() const noexcept { return m_failure; }

    /// The same failure with the file's name, unless one is named already.
    [[nodiscard]] RunTimeError about(const std::filesystem::path& file) const;

private:
    Failure m_failure;
    bool m_namesFile = false;
};

/// The failure that an error of the file system means to the user.
[[nodiscard]] Failure failureOf(const std::error_code& error);

/// What the user is told about any error: a standard text where one fits it, else the error's own.
[[nodiscard]] std::string inWords(const std::exception& error);

}  // namespace kavo
