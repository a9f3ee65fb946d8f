#pragma once

#include "core/session.h"

#include <string>

namespace kavo {

enum class Colouring { None, Terminal };

/// The table in aligned columns, in UTF-8. Terminal: each cell in its colour and bold where marked.
[[nodiscard]] std::string formatTable(const Session& session, Colouring colouring);

}  // namespace kavo
