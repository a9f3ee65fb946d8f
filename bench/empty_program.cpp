// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

/// The least that any program costs: bench/measure.py compares the command line's start with it.
int main() {}
