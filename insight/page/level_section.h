#pragma once

#include "insight/dashboard.h"
#include "insight/page/markup.h"

namespace kavo {

/// The sortable table of all levels.
void writeLevels(Markup& page, const Dashboard& dashboard);

}  // namespace kavo
