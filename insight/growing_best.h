// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/best_ever.h"

#include <filesystem>
#include <functional>
#include <vector>

namespace kavo {

/// The best of a history that grows while a program runs: what has been taken in is not read again.
class GrowingBest final
{
public:
    /// Takes in what is new in a history; everything anew where it is another history, or one in which something
    /// that was taken in has changed or gone. Asks before each state whether it is to go on; whether it went
    /// through to the end. Throws nothing but std::bad_alloc.
    [[nodiscard]] bool follow(const HistoryStore& history, const std::function<bool()>& mayGoOn);

    /// What bestEverOf gives of the history followed last.
    [[nodiscard]] const BestEver& best() const { return m_best; }

private:
    void forgetUnless(const HistoryStore& history, const std::vector<RememberedState>& states);

    std::filesystem::path m_folder;
    std::vector<RememberedState> m_taken;
    BestEver m_best;
};

}  // namespace kavo
