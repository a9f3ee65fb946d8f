// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace kavo::test {

/// Takes the fonts of one package alone, where that is installed, so that windows have the same sizes on
/// every computer. To be called before there is an application.
void useFixedFonts();

}  // namespace kavo::test
