#include "core/targets.h"

#include "base/file_name.h"
#include "base/text_cursor.h"
#include "base/text_file.h"

#include <algorithm>

namespace kavo {

void parseTargets(std::string_view text, ResultsState& state)
{
    TextCursor cursor(text);
    for (int record = 1; record <= kTotalsRow; ++record) {
        for (const Grade& grade : grades())
            if (grade.targets != nullptr) (state.*grade.targets)[record] = cursor.field();
        for (const Grade& grade : grades()) {
            if (grade.targets == nullptr) continue;
            std::string& time = (state.*grade.targets)[record];
            std::replace(time.begin(), time.end(), '.', ':');
        }
    }
}

std::filesystem::path targetsFile(const std::filesystem::path& programFolder)
{
    return locate(programFolder / "targets.txt");
}

bool LoadTargets(const std::filesystem::path& programFolder, ResultsState& state)
{
    const auto path = targetsFile(programFolder);
    if (!fileExists(path)) return false;
    parseFile(path, [&state](std::string_view text) { parseTargets(text, state); });
    return true;
}

}  // namespace kavo
