// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

namespace kavo {

/// A file of the system while it is open. What goes wrong is told as an error code. Opening never waits,
/// not for a pipe's other end either, and a program that is started meanwhile does not inherit the file.
class OpenFile final
{
public:
    OpenFile() = default;
    OpenFile(OpenFile&& other) noexcept;
    OpenFile& operator=(OpenFile&& other) noexcept;
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile();

    /// To be read.
    [[nodiscard]] static OpenFile toRead(const std::filesystem::path& path, std::error_code& error);

    /// To be written; it is made, and an error where something stands already.
    [[nodiscard]] static OpenFile newFile(const std::filesystem::path& path, std::error_code& error);

    /// To be written where it stands: a device, or a pipe that somebody reads from.
    [[nodiscard]] static OpenFile device(const std::filesystem::path& path, std::error_code& error);

    enum class IfMissing { Make, Fail };

    /// Only to be locked. A file that may not be written is opened all the same.
    [[nodiscard]] static OpenFile toLock(const std::filesystem::path& path, IfMissing ifMissing,
                                         std::error_code& error);

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }

    /// Bytes of an ordinary file, nothing for whatever else is open.
    [[nodiscard]] std::optional<std::uintmax_t> ordinarySize() const;

    /// The bytes read, at most `size`; 0 at the end of the file.
    [[nodiscard]] std::size_t read(char* buffer, std::size_t size, std::error_code& error) const;

    void write(std::string_view bytes, std::error_code& error) const;

    /// Everything written is on the disk when this returns.
    void flush(std::error_code& error) const;

    /// Gives the file what can be given of another's owner and permissions, if that other is there.
    void takePermissionsOf(const std::filesystem::path& other) const;

    enum class Lock {
        Held,
        Busy,         ///< somebody else has it
        Unavailable,  ///< the file system has no locks
    };

    /// Takes the lock that programs agree on, without waiting. It belongs to this open file and ends with it,
    /// however its holder ends.
    [[nodiscard]] Lock lock() const;

    /// Whether this very file still stands at `path`.
    [[nodiscard]] bool isAt(const std::filesystem::path& path) const;

    void close() noexcept;

private:
    explicit OpenFile(int descriptor) : m_descriptor(descriptor) {}

    int m_descriptor = -1;
};

}  // namespace kavo
