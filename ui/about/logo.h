#pragma once

#include <QIcon>

namespace kavo {

/// The program's logo, crisp in the sizes that windows, task bars and the splash ask for.
[[nodiscard]] QIcon logo();

}  // namespace kavo
