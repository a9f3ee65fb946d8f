// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/atomic_file.h"
#include "reports/report_lines.h"

#include <filesystem>

namespace kavo {

/// A report on its way into a file, which is replaced. A report that breaks off before close() stays as
/// far as it was written: the last line in it shows the user where to look. A disk that fails leaves the
/// report that was there before.
class ReportFile final : public ReportLines
{
public:
    /// Throws as AtomicFile does.
    explicit ReportFile(const std::filesystem::path& path) : m_file(path) {}
    ~ReportFile() override;
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;

    void write(std::string_view text) override;
    void close();

private:
    AtomicFile m_file;
    bool m_isClosed = false;
};

}  // namespace kavo
