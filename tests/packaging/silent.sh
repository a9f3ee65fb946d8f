#!/bin/sh
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Runs a checker that is content when it says nothing and fails with what it says. Usage: silent.sh COMMAND...
said=$("$@" 2>&1) && [ -z "$said" ] && exit 0
printf '%s\n' "$said"
exit 1
