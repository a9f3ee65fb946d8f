#!/bin/bash
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Draws kavo-timing.svg in every size that desktops ask for: kavo-timing-SIZE.png beside it. The same drawing
# gives the same bytes. Usage: packaging/icons/make_pngs.sh [FOLDER]
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
folder="${1:-$here}"
for size in 16 22 24 32 48 64 128 256 512; do
    rsvg-convert --width "$size" --height "$size" --output "$folder/kavo-timing-$size.png" "$here/kavo-timing.svg"
done
