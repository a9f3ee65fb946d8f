// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/loading.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kavo::test {

/// A program folder of its own for one test, removed with it.
class TemporaryFolder final
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const;

    /// Writes a file, with the folders on the way to it.
    void write(std::string_view name, std::string_view content) const;
    [[nodiscard]] std::string read(std::string_view name) const;
    /// Whether something is there whose name is spelled so.
    [[nodiscard]] bool has(std::string_view name) const;

    /// Makes a file, which may be there already, so large. It takes no room on the disk.
    void enlarge(std::string_view name, std::uintmax_t size = kTerabyte) const;

    static constexpr std::uintmax_t kTerabyte = std::uintmax_t{1} << 40U;  ///< more than anything reads

private:
    std::filesystem::path m_path;
};

/// The path as the system tells it from others: Windows takes capital letters and small ones for the same.
[[nodiscard]] std::filesystem::path asCompared(const std::filesystem::path& path);

/// A copy of the demo folder that ./run.sh starts on.
void copyDemo(const TemporaryFolder& folder);

/// A statistics file with `bestTimes` (one line each as the game writes it, "" for a level without a
/// time) on the 54 levels, missing ones filled with "00:30:00 Alice". Level 8 is called Steppes.
[[nodiscard]] std::string statisticsText(const std::vector<std::string>& bestTimes = {});

/// A statistics file of somebody who has not driven a single level.
[[nodiscard]] std::string undrivenText();

/// 55 records of the same five targets (World Record to OK).
[[nodiscard]] std::string targetsText(std::string_view record = "00:10:00,00:20:00,00:30:00,00:40:00,00:50:00");

/// Records what a loading asks of its host; answers the Options dialog with `afterOptions`.
class HostRecord final : public LoadingHost
{
public:
    AfterOptions afterOptions = AfterOptions::GoOn;
    std::vector<Message> messages;
    int optionsOpened = 0;
    std::vector<double> layout;
    int layoutLoadedCalls = 0;

    void showMessage(const Message& message) override { messages.push_back(message); }
    AfterOptions openOptions() override;
    void applyLayout(const std::vector<double>& values) override { layout = values; }
    void layoutLoaded() override { ++layoutLoadedCalls; }
};

}  // namespace kavo::test
