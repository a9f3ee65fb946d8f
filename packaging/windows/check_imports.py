#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Fails when a Windows program needs a DLL that does not come with every Windows 10. Usage: check_imports.py EXE..."""

import pathlib
import re
import subprocess
import sys

SYSTEM = frozenset(
    """
    advapi32 api-ms-win-core-synch-l1-2-0 api-ms-win-core-winrt-l1-1-0 api-ms-win-core-winrt-string-l1-1-0 authz
    bcrypt comctl32 comdlg32 crypt32 d2d1 d3d11 d3d9 dcomp dnsapi dwmapi dwrite dxgi gdi32 imm32 iphlpapi kernel32 mpr
    msvcrt ncrypt netapi32 ole32 oleaut32 rpcrt4 secur32 setupapi shcore shell32 shlwapi user32 userenv uxtheme
    version winhttp winmm winspool.drv ws2_32 wtsapi32
    """.split()
)


def imports_of(program):
    """The names as they are loaded, in small letters and without ".dll"."""
    command = ["x86_64-w64-mingw32-objdump", "--private-headers", program]
    text = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    return {name.lower().removesuffix(".dll") for name in re.findall(r"DLL Name: (\S+)", text)}


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    faults = []
    for program in sys.argv[1:]:
        imports = imports_of(program)
        if "kernel32" not in imports:
            faults.append(f"{pathlib.Path(program).name}: no imports found")
        faults += [f"{pathlib.Path(program).name}: needs {name}" for name in sorted(imports - SYSTEM)]
    if faults:
        sys.exit("\n".join(faults))


if __name__ == "__main__":
    main()
