#pragma once

#include <string>
#include <string_view>

namespace kavo {

/// The text in UTF-8 with a blank for every character that would act on a terminal instead of being shown.
[[nodiscard]] std::string printable(std::string_view text);

/// The same in place; nearly every text is printable already.
void makePrintable(std::string& text);

}  // namespace kavo
