#!/bin/sh
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Makes a program folder to look around in, with two users and their results. Usage: packaging/demo_folder.sh FOLDER
set -eu
sources="$(dirname "$0")/../data"
cp -r "$sources/demo" "$1"
cp "$sources"/*.txt "$1"
for supplied in templates schemes; do
    [ ! -d "$sources/$supplied" ] || cp -r "$sources/$supplied" "$1"
done
