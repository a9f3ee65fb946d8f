// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/colour_set.h"
#include "insight/page/markup.h"

#include <functional>
#include <string>
#include <string_view>

namespace kavo {

/// A whole page with what `writeContent` puts into it. The page is complete in itself: it loads nothing, and its
/// content-security policy lets no browser load anything, nor run any script but the one that sorts tables.
[[nodiscard]] std::string formatPage(std::string_view title, const ColourSet& scheme,
                                     const std::function<void(Markup&)>& writeContent);

/// Somebody's name as pages show it: cut where it is so long that it would be all there is to see.
[[nodiscard]] std::string pageName(std::string_view name);

}  // namespace kavo
