@rem SPDX-FileCopyrightText: 2026 Kavo Timing contributors
@rem SPDX-License-Identifier: GPL-3.0-or-later
@rem Writes everything about the current user's results as one page and opens it in the browser.
@"%~dp0kavo-timing-cli.exe" dashboard --open
@if errorlevel 1 pause
