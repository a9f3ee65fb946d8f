// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_lock.h"

namespace fs = std::filesystem;

namespace kavo {

FileLock::FileLock(const fs::path& path) : m_path(path)
{
    // A holder that ends at this moment deletes the file that was just opened: then there is a new one.
    constexpr int kEnough = 100;
    for (int time = 0; time < kEnough; ++time) {
        m_state = attempt();
        if (m_state != State::Held || m_file.isAt(m_path)) return;
    }
    m_state = State::Unavailable;
}

FileLock::State FileLock::attempt()
{
    std::error_code error;
    const fs::file_type type = fs::status(m_path, error).type();
    if (type != fs::file_type::regular && type != fs::file_type::not_found) return State::Unavailable;
    m_file = OpenFile::toLock(m_path, OpenFile::IfMissing::Make, error);
    if (!m_file.isOpen() || !m_file.ordinarySize()) return State::Unavailable;
    switch (m_file.lock()) {
    case OpenFile::Lock::Held: return State::Held;
    case OpenFile::Lock::Busy: return State::Busy;
    case OpenFile::Lock::Unavailable: break;
    }
    return State::Unavailable;
}

FileLock::~FileLock()
{
    std::error_code ignored;
    if (m_state != State::Held || fs::is_symlink(fs::symlink_status(m_path, ignored))) return;
#ifdef _WIN32
    m_file.close();  // nothing that is open can be deleted there
#endif
    // Elsewhere while the lock is held: whoever gets it next sees that the file has gone.
    fs::remove(m_path, ignored);
}

}  // namespace kavo
