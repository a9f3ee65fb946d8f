// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/growing_best.h"

#include <algorithm>

namespace kavo {

bool GrowingBest::follow(const HistoryStore& history, const std::function<bool()>& mayGoOn)
{
    const std::vector<RememberedState> states = history.states();
    forgetUnless(history, states);
    for (std::size_t next = m_taken.size(); next < states.size(); ++next) {
        if (!mayGoOn()) return false;
        m_taken.push_back(states[next]);
        takeRemembered(m_best, history, states[next].name);
    }
    return true;
}

void GrowingBest::forgetUnless(const HistoryStore& history, const std::vector<RememberedState>& states)
{
    const bool isSame = m_folder == history.folder() && m_taken.size() <= states.size() &&
                        std::equal(m_taken.begin(), m_taken.end(), states.begin());
    if (isSame) return;
    m_folder = history.folder();
    m_taken.clear();
    m_best = {};
}

}  // namespace kavo
