// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "fuzz_input.h"
#include "updater/http_response.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t kLongestBody = 300;
    const std::string_view bytes = kavo::fuzz::textOf(data, size);
    kavo::HttpResponse atOnce(kLongestBody);
    atOnce.take(bytes);
    kavo::HttpResponse byteByByte(kLongestBody);
    for (const char& byte : bytes) byteByByte.take({&byte, 1});
    // The sizes of the pieces are the network's, and decide nothing.
    kavo::fuzz::require(atOnce.stage() == byteByByte.stage());
    kavo::fuzz::require(atOnce.hasHead() == byteByByte.hasHead());
    using Stage = kavo::HttpResponse::Stage;
    atOnce.takeEnd();
    byteByByte.takeEnd();
    kavo::fuzz::require(atOnce.stage() == byteByByte.stage());
    kavo::fuzz::require(atOnce.stage() == Stage::Complete || atOnce.stage() == Stage::Broken);
    if (atOnce.stage() != Stage::Complete) return 0;
    kavo::fuzz::require(atOnce.body() == byteByByte.body());
    kavo::fuzz::require(atOnce.body().size() <= kLongestBody && atOnce.body().size() <= size);
    return 0;
}
