// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/loading.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/table_text.h"

#include <string>
#include <string_view>

namespace kavo::test {

/// A program folder with user bob, and what loadings of it leave. Without further files there is
/// nothing to load.
class LoadedFolder final
{
public:
    LoadedFolder();

    TemporaryFolder folder;
    HostRecord host;
    Session session;
    LoadingResult result;

    /// A statistics file, targets and a complete `data.ini` with this method and category.
    void writeAll(int method = 2, std::string_view category = "");

    /// Runs the loading, with a fresh host.
    void run(const LoadingOptions& options = {});

    [[nodiscard]] std::string row(int row) const { return marked(session, row); }
    [[nodiscard]] std::string headers() const { return test::headers(session.table); }
    [[nodiscard]] std::string counts(Side side) const { return test::counts(session.state, side); }
    [[nodiscard]] std::string victories() const;

    /// Texts of the messages shown, each ended by "|".
    [[nodiscard]] std::string messages() const;
};

}  // namespace kavo::test
