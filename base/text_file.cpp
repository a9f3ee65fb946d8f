#include "base/text_file.h"

#include "base/file_name.h"
#include "base/text.h"

#include <cerrno>
#include <functional>

#ifdef _WIN32
#include <io.h>
#include <process.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace kavo {

namespace {

constexpr std::size_t kReadSize = 1U << 16U;

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

std::FILE* openFile(const fs::path& path, const char* mode)
{
#ifdef _WIN32
    std::string narrow(mode);
    std::erase(narrow, 'x');  // exclusive creation is not in every C run-time library there
    return ::_wfopen(path.c_str(), std::wstring(narrow.begin(), narrow.end()).c_str());
#else
    return std::fopen(path.c_str(), mode);
#endif
}

bool flushToDisk(std::FILE* file)
{
    if (std::fflush(file) != 0) return false;
#ifdef _WIN32
    return ::_commit(::_fileno(file)) == 0;
#else
    return ::fsync(::fileno(file)) == 0 || errno == EINVAL || errno == EROFS;
#endif
}

/// Makes a rename survive a power cut, where the file system can do it.
void flushFolder([[maybe_unused]] const fs::path& folder)
{
#ifndef _WIN32
    const int descriptor = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
#endif
}

int processId()
{
#ifdef _WIN32
    return ::_getpid();
#else
    return ::getpid();
#endif
}

/// The new file gets the permissions of the one it replaces.
void keepPermissions(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    const fs::file_status status = fs::status(from, error);
    if (fs::exists(status)) fs::permissions(to, status.permissions(), error);
}

bool isDirectlyWritten(const fs::path& target)
{
    std::error_code ignored;
    const fs::file_status status = fs::status(target, ignored);
    return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

/// A file that the user has write-protected is not replaced behind the protection.
bool isWriteProtected(const fs::path& target)
{
#ifdef _WIN32
    return fileExists(target) && ::_waccess(target.c_str(), 2) != 0;
#else
    return fileExists(target) && ::access(target.c_str(), W_OK) != 0;
#endif
}

fs::path temporaryBeside(const fs::path& target)
{
    const auto hash = std::hash<std::string>{}(textOf(target.filename()));
    return target.parent_path() / pathOf(".kavo-" + std::to_string(processId()) + "-" + std::to_string(hash) + ".tmp");
}

fs::path followLinks(const fs::path& path)
{
    std::error_code error;
    if (!fs::is_symlink(path, error)) return path;
    const fs::path target = fs::weakly_canonical(path, error);
    return error ? path : target;
}

}  // namespace

std::string readFile(const fs::path& path)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        openFile(path, "rb"), [](std::FILE* f) { return f != nullptr ? std::fclose(f) : 0; });
    if (!file) throw RunTimeError(errno == ENOENT ? Failure::FileNotFound : failureOf(lastError()), path);
    std::string content;
    std::error_code ignored;
    const auto size = fs::file_size(path, ignored);
    if (!ignored) content.reserve(size + 1);
    for (std::size_t got = kReadSize; got == kReadSize;) {
        const std::size_t before = content.size();
        content.resize(before + kReadSize);
        got = std::fread(content.data() + before, 1, kReadSize, file.get());
        content.resize(before + got);
    }
    if (std::ferror(file.get()) != 0) throw RunTimeError(Failure::PathFileAccess, path);
    return content;
}

std::optional<std::string> readFileIfThere(const fs::path& path)
{
    if (!fileExists(path)) return std::nullopt;
    return readFile(path);
}

AtomicFile::AtomicFile(const fs::path& path) : m_named(path), m_target(followLinks(path))
{
    if (folderExists(m_target)) throw RunTimeError(Failure::PathFileAccess, m_named);
    if (isWriteProtected(m_target)) throw RunTimeError(Failure::PathFileAccess, m_named);
    if (m_target.filename().empty()) throw RunTimeError(Failure::PathNotFound, m_named);
    openTarget();
}

void AtomicFile::openTarget()
{
    if (isDirectlyWritten(m_target)) {
        m_file = openFile(m_target, "wb");
    } else {
        m_temporary = temporaryBeside(m_target);
        std::error_code ignored;
        fs::remove(m_temporary, ignored);
        m_file = openFile(m_temporary, "wbx");
    }
    if (m_file == nullptr) fail(lastError());
    if (!m_temporary.empty()) keepPermissions(m_target, m_temporary);
}

AtomicFile::~AtomicFile()
{
    if (m_file != nullptr) std::fclose(m_file);
    std::error_code ignored;
    if (!m_temporary.empty()) fs::remove(m_temporary, ignored);
}

void AtomicFile::fail(const std::error_code& error) const
{
    throw RunTimeError(failureOf(error), m_named);
}

void AtomicFile::write(std::string_view bytes)
{
    if (std::fwrite(bytes.data(), 1, bytes.size(), m_file) != bytes.size()) fail(lastError());
}

void AtomicFile::commit()
{
    if (m_temporary.empty()) {
        if (std::fflush(m_file) != 0) fail(lastError());
        return;
    }
    if (!flushToDisk(m_file)) fail(lastError());
    const int closed = std::fclose(m_file);
    m_file = nullptr;
    if (closed != 0) fail(lastError());
    std::error_code error;
    fs::rename(m_temporary, m_target, error);
    if (error) fail(error);
    m_temporary.clear();
    flushFolder(m_target.parent_path());
}

void AtomicFile::keepAsWritten() noexcept
{
    if (m_temporary.empty()) return;
    if (m_file != nullptr) std::fclose(m_file);
    m_file = nullptr;
    std::error_code error;
    fs::rename(m_temporary, m_target, error);
    if (!error) m_temporary.clear();
}

void replaceFile(const fs::path& path, std::string_view content)
{
    AtomicFile file(path);
    file.write(content);
    file.commit();
}

void appendLine(const fs::path& path, std::string_view line)
{
    std::string content = readFileIfThere(path).value_or("");
    // A last line that a text editor left unended must not run into the new one.
    if (!content.empty() && content.back() != '\n') content.append(kLineEnd);
    replaceFile(path, content.append(line).append(kLineEnd));
}

void copyFile(const fs::path& from, const fs::path& to)
{
    if (!fileExists(from)) throw RunTimeError(Failure::FileNotFound, from);
    replaceFile(to, readFile(from));
}

void deleteFile(const fs::path& path)
{
    std::error_code error;
    fs::remove(path, error);
    if (error) throw RunTimeError(Failure::PathFileAccess, path);
}

}  // namespace kavo
