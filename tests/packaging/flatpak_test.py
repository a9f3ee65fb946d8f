#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Checks the Flatpak manifest as far as that goes without a network: flatpak-builder reads it, the names in it are
those of an installation, and what it fetches is pinned.

Usage: flatpak_test.py USR
"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
MANIFEST = ROOT / "packaging/flatpak/org.example.kavotiming.yaml"


class Flatpak(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory(prefix="kavo-test-") as state:
            command = ["flatpak-builder", "--show-manifest", MANIFEST]  # leaves files where it is started
            done = subprocess.run(command, cwd=state, capture_output=True, text=True, check=True)
        cls.complaints = done.stderr
        cls.manifest = json.loads(done.stdout)

    def test_is_read_without_complaints(self):
        self.assertEqual(self.complaints, "")

    def test_names_are_those_of_an_installation(self):
        metadata = xml.etree.ElementTree.parse(USR / f"share/metainfo/{self.manifest['id']}.metainfo.xml")
        self.assertEqual(metadata.find("id").text, self.manifest["id"])
        self.assertEqual(metadata.find("launchable").text, self.manifest["rename-desktop-file"])
        self.assertTrue((USR / "share/applications" / self.manifest["rename-desktop-file"]).is_file())
        self.assertTrue((USR / f"share/icons/hicolor/256x256/apps/{self.manifest['rename-icon']}.png").is_file())
        self.assertTrue((USR / "bin" / self.manifest["command"]).is_file())

    def test_what_it_fetches_is_pinned(self):
        for module in self.manifest["modules"]:
            for source in module["sources"]:
                if source["type"] == "dir":
                    self.assertEqual((MANIFEST.parent / source["path"]).resolve(), ROOT)
                else:
                    self.assertTrue(source["url"].startswith("https://"))
                    self.assertRegex(source.get("sha256") or source["commit"], r"^[0-9a-f]{40,64}$")

    def test_options_are_those_of_the_build(self):
        known = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
        for option in self.manifest["modules"][-1]["config-opts"]:
            name = re.match(r"-D(\w+)=", option)[1]
            self.assertTrue(name.startswith("CMAKE_") or re.search(rf"\b{name}\b", known), option)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    USR = pathlib.Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1], verbosity=2)
