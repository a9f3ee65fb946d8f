# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# The library utf8proc: Utf8proc_FOUND and the target Utf8proc::Utf8proc.
find_path(Utf8proc_INCLUDE_DIR utf8proc.h)
# The archive where it is there: the start of a program needs no further library then.
find_library(Utf8proc_LIBRARY NAMES libutf8proc.a utf8proc)
mark_as_advanced(Utf8proc_INCLUDE_DIR Utf8proc_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Utf8proc REQUIRED_VARS Utf8proc_LIBRARY Utf8proc_INCLUDE_DIR)
if(Utf8proc_FOUND AND NOT TARGET Utf8proc::Utf8proc)
    add_library(Utf8proc::Utf8proc UNKNOWN IMPORTED)
    set_target_properties(Utf8proc::Utf8proc PROPERTIES
        IMPORTED_LOCATION "${Utf8proc_LIBRARY}" INTERFACE_INCLUDE_DIRECTORIES "${Utf8proc_INCLUDE_DIR}")
endif()
