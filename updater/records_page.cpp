// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updater/records_page.h"

#include "base/file_name.h"
#include "base/text.h"
#include "base/text_cursor.h"
#include "base/text_file.h"
#include "core/level_time.h"
#include "core/targets.h"

namespace fs = std::filesystem;

namespace kavo {

namespace {

constexpr std::string_view kPageAndQuery = "/records_kavo_wrs.php?mode=text";
constexpr std::string_view kMarker = "align=\"right\">";  ///< stands right before every time
constexpr std::size_t kTimeWidth = 7;                     ///< characters cut behind a marker
constexpr std::size_t kSearchStep = 5;                    ///< from a marker to where the next search starts
constexpr int kRowsOfPage = kLevels / 2;

/// Cuts one time after the other out of the page.
class TimeCutter final
{
public:
    explicit TimeCutter(std::string_view page) : m_page(page) {}

    std::string_view next()
    {
        const std::size_t marker = m_page.find(kMarker, m_searchFrom);
        if (marker == std::string_view::npos) return withoutMarker();
        m_searchFrom = marker + kSearchStep;
        return firstCharacters(m_page.substr(marker + kMarker.size()), kTimeWidth);
    }

private:
    /// On purpose: a marker that is not there counts as standing at position 0, one before the page. What
    /// lies at the offsets from there is taken, and the next search starts at the page's beginning again.
    std::string_view withoutMarker()
    {
        m_searchFrom = advance(m_page, 0, kSearchStep - 1);
        return characters(m_page, kMarker.size(), kTimeWidth);
    }

    std::string_view m_page;
    std::size_t m_searchFrom = 0;
};

/// A time that is shorter than the cut has the start of the closing tag behind it.
std::string withoutTag(std::string_view cut)
{
    return replaceAll(replaceAll(replaceAll(cut, "<", ""), ">", ""), "/", "");
}

std::string normalised(const std::string& time)
{
    constexpr std::size_t kSecondsOnly = 5;          // SS,HH
    constexpr std::size_t kWithOneDigitMinutes = 7;  // M:SS,HH
    const std::size_t length = countCharacters(time);
    const std::string_view front = length == kSecondsOnly ? "00:" : length == kWithOneDigitMinutes ? "0" : "";
    return replaceAll(std::string(front) + time, ",", ":");
}

/// Keeps targets that are about to be lost. What a bad page has given never pushes good targets out of the
/// backup, and the same targets once more are no loss.
void keepFormerTargets(const fs::path& programFolder, std::string_view former, std::string_view replacement)
{
    const fs::path backup = targetsBackupFile(programFolder);
    if (former.empty() || former == replacement) return;
    if (holdsAllTargets(former) || !fileExists(backup)) replaceFile(backup, former);
}

}  // namespace

std::string recordsPageAddress(std::string_view host)
{
    std::string base(trimBlanks(host).empty() ? kRecordsHost : trimBlanks(host));
    const std::string folded = foldCase(base);
    if (!folded.starts_with("http://") && !folded.starts_with("https://")) base.insert(0, "http://");
    if (base.ends_with('/')) base.pop_back();
    return base.append(kPageAndQuery);
}

RecordTimes cutRecordTimes(std::string_view page)
{
    TimeCutter cutter(page);
    RecordTimes times;
    for (int row = 1; row <= kRowsOfPage; ++row) {
        times[row] = withoutTag(cutter.next());
        times[row + kRowsOfPage] = withoutTag(cutter.next());
    }
    return times;
}

bool holdsAllTimes(std::string_view page)
{
    std::size_t from = 0;
    for (int level = 1; level <= kLevels; ++level) {
        const std::size_t marker = page.find(kMarker, from);
        if (marker == std::string_view::npos) return false;
        from = marker + kMarker.size();
    }
    constexpr char kTag = '<';
    return page.find(kTag, from) != std::string_view::npos;
}

TargetRecords worldRecords(const RecordTimes& times)
{
    TargetRecords records;
    std::string total(kNoTime);
    for (int level = 1; level <= kLevels; ++level) {
        records[level] = normalised(times[level]);
        total = AddTime(total, records[level]);
    }
    records[kTotalsRow] = total;
    return records;
}

std::vector<int> levelsWithoutTime(const TargetRecords& records)
{
    std::vector<int> levels;
    for (int level = 1; level <= kLevels; ++level)
        if (!isTimeOfLevel(records[level])) levels.push_back(level);
    return levels;
}

std::string joinTargets(const TargetRecords& records, std::string_view fixedTargets)
{
    std::string content;
    TextCursor lines(fixedTargets);
    for (int record = 1; record <= kTotalsRow; ++record)
        content.append(records[record]).append(",").append(lines.line()).append(kLineEnd);
    return content;
}

fs::path targetsBackupFile(const fs::path& programFolder)
{
    return locate(programFolder / "targets.bak");
}

void rewriteTargets(const fs::path& programFolder, const TargetRecords& records)
{
    const std::string content =
        parseFile(locate(programFolder / "targets_old.txt"),
                  [&records](std::string_view fixedTargets) { return joinTargets(records, fixedTargets); });
    const fs::path targets = targetsFile(programFolder);
    const std::string former = readFileIfThere(targets).value_or("");
    AtomicFile replacement(targets);
    replacement.write(content);
    // All of it is on the disk before anything is replaced, and the backup is in its place before the targets
    // are: no room for one of them leaves the targets as they were, and nothing that happens loses both.
    replacement.flush();
    keepFormerTargets(programFolder, former, content);
    replacement.commit();
}

}  // namespace kavo
