// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>

namespace kavo {

/// Array with the index range 1 to Last.
template <typename Value, int Last>
class OneBased final
{
public:
    Value& operator[](int index) { return m_values.at(static_cast<std::size_t>(index) - 1); }
    const Value& operator[](int index) const { return m_values.at(static_cast<std::size_t>(index) - 1); }

    void fill(const Value& value) { m_values.fill(value); }

private:
    std::array<Value, Last> m_values{};
};

}  // namespace kavo
