#pragma once

#include "base/run_time_error.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kavo {

/// The whole content, byte for byte. Throws RunTimeError: FileNotFound, PathFileAccess.
[[nodiscard]] std::string readFile(const std::filesystem::path& path);

/// The content, or nothing when no such file exists.
[[nodiscard]] std::optional<std::string> readFileIfThere(const std::filesystem::path& path);

/// Reads and parses a file; a failure of the parser is reported with the file's name.
template <typename Parser>
auto parseFile(const std::filesystem::path& path, Parser parse)
{
    const std::string content = readFile(path);
    try {
        return parse(std::string_view(content));
    } catch (const RunTimeError& error) {
        throw error.about(path);
    }
}

/// A file that is replaced as a whole: what is written goes into a new file beside it, which takes its
/// place at commit(), flushed to the disk before. Without a commit the old file stays as it was.
/// A path that is no ordinary file (a device, a pipe) is written directly.
class AtomicFile final
{
public:
    /// Throws RunTimeError: PathNotFound, PathFileAccess, DiskFull.
    explicit AtomicFile(const std::filesystem::path& path);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    void write(std::string_view bytes);
    void commit();

    /// In place of a commit that cannot be had: what was written so far takes the old file's place.
    void keepAsWritten() noexcept;

private:
    [[noreturn]] void fail(const std::error_code& error) const;
    void openTarget();

    std::filesystem::path m_named;      ///< as asked for: named in failures
    std::filesystem::path m_target;     ///< the file that is replaced, symbolic links followed
    std::filesystem::path m_temporary;  ///< empty when the target is written directly
    std::FILE* m_file = nullptr;
};

/// Replaces a file by `content`, atomically and durably. Throws as AtomicFile does.
void replaceFile(const std::filesystem::path& path, std::string_view content);

/// Adds a line at the end of a file, which is made when missing.
void appendLine(const std::filesystem::path& path, std::string_view line);

/// Copies a file byte for byte, atomically. Throws FileNotFound when there is no source.
void copyFile(const std::filesystem::path& from, const std::filesystem::path& to);

/// Deletes a file if it is there. Throws PathFileAccess.
void deleteFile(const std::filesystem::path& path);

}  // namespace kavo
