// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <pthread.h>

namespace kavo::test {

/// As long as it lives the system has no memory for another thread.
class NoMoreThreads final
{
public:
    NoMoreThreads()
    {
        pthread_getattr_default_np(&m_before);
        pthread_attr_t tooLarge{};
        pthread_attr_init(&tooLarge);
        constexpr std::size_t kLargerThanAnyMemory = std::size_t{1} << 47;
        pthread_attr_setstacksize(&tooLarge, kLargerThanAnyMemory);
        pthread_setattr_default_np(&tooLarge);
        pthread_attr_destroy(&tooLarge);
    }
    ~NoMoreThreads()
    {
        pthread_setattr_default_np(&m_before);
        pthread_attr_destroy(&m_before);
    }
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;

private:
    pthread_attr_t m_before{};
};

}  // namespace kavo::test
