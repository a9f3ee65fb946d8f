// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/file_check.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_file.h"
#include "base/write_protection.h"

namespace fs = std::filesystem;

namespace kavo {

namespace {

constexpr std::uintmax_t kLargestFile = 64U << 20U;  // bytes; the largest that is read for looking at it
constexpr std::uintmax_t kEnoughSpace = 1U << 20U;   // bytes; all that a user's files need several times over

Finding aboutFile(Severity severity, const fs::path& file, std::string text, std::string advice)
{
    return {.severity = severity, .file = file, .text = std::move(text), .advice = std::move(advice)};
}

/// What else than a file stands there; empty for a file.
std::string otherKind(const fs::file_status& status)
{
    switch (status.type()) {
    case fs::file_type::regular: return {};
    case fs::file_type::directory: return "a folder stands in the place of this file";
    case fs::file_type::not_found: return "it is a link that leads nowhere";
    default: return "a pipe or a device stands in the place of this file";
    }
}

/// Entries of the folder that a system without regard to case would take for the same file.
Findings checkTwins(const fs::path& file)
{
    const std::string wanted = foldCase(textOf(file.filename()));
    std::error_code error;
    for (fs::directory_iterator entry(file.parent_path(), error), end; !error && entry != end; entry.increment(error)) {
        const fs::path name = entry->path().filename();
        if (name == file.filename() || foldCase(textOf(name)) != wanted) continue;
        return {aboutFile(Severity::Warning, file,
                          "beside it lies " + textOf(name) + ", which has the same name but for capital letters",
                          "keep the right one of the two and remove the other")};
    }
    return {};
}

void readInto(FileLook& look, const fs::path& file)
{
    std::error_code error;
    if (fs::file_size(file, error) > kLargestFile) {
        look.findings.push_back(aboutFile(Severity::Warning, file, "it is too large to be looked at (64 MB and more)",
                                          "look whether it is the right file"));
        return;
    }
    try {
        look.content = readFile(file);
    } catch (const RunTimeError& failure) {
        look.findings.push_back(aboutFile(
            Severity::Error, file, "it cannot be read (\"" + std::string(standardText(failure.failure())) + "\")",
            "give yourself the right to read it"));
    }
}

}  // namespace

FileLook lookAt(const fs::path& file, FileUse use)
{
    FileLook look;
    std::error_code ignored;
    if (!fs::exists(fs::symlink_status(file, ignored))) {
        look.isMissing = true;
        return look;
    }
    const std::string other = otherKind(fs::status(file, ignored));
    if (!other.empty()) {
        look.findings.push_back(aboutFile(Severity::Error, file, other, "move it away"));
        return look;
    }
    readInto(look, file);
    if (use == FileUse::Rewritten && writeProtection(file))
        look.findings.push_back(aboutFile(Severity::Warning, file, "it is write-protected, so it cannot be saved",
                                          "take the protection off, if that was not on purpose"));
    const Findings twins = checkTwins(file);
    look.findings.insert(look.findings.end(), twins.begin(), twins.end());
    return look;
}

Findings checkFolder(const fs::path& folder)
{
    if (!folderExists(folder)) {
        std::error_code ignored;
        if (!fs::exists(fs::symlink_status(folder, ignored))) return {};
        return {aboutFile(Severity::Error, folder, "a file stands in the place of this folder", "move it away")};
    }
    if (!writeProtection(folder)) return {};
    return {aboutFile(Severity::Warning, folder, "nothing can be saved in this folder: it is write-protected",
                      "give yourself the right to write, or choose another folder with --program-folder")};
}

Findings checkSpace(const fs::path& folder, std::uintmax_t available)
{
    if (available >= kEnoughSpace) return {};
    return {aboutFile(Severity::Error, folder,
                      "only " + std::to_string(available) + " bytes are left on its disk (\"Disk full\")",
                      "remove something from the disk")};
}

}  // namespace kavo
