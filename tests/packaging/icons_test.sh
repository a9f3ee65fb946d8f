#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Draws all icons anew and compares them with those that lie beside the picture.
set -euo pipefail
icons="$(cd "$(dirname "$0")/../../packaging/icons" && pwd)"
drawn="$(mktemp -d)"
trap 'rm -rf "$drawn"' EXIT
"$icons/make_pngs.sh" "$drawn"
[ "$(find "$drawn" -name '*.png' | wc -l)" -eq 9 ]
[ "$(find "$icons" -name '*.png' | wc -l)" -eq 9 ]
for icon in "$drawn"/*.png; do
    cmp "$icon" "$icons/$(basename "$icon")"
done
