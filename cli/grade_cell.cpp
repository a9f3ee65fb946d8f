// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/grade_cell.h"

namespace kavo {

PrintedCell gradeCell(TargetCategory category, const ColourSet& colours)
{
    const Grade& grade = gradeOf(category);
    PrintedCell cell{.text = std::string(grade.name)};
    if (grade.colour != nullptr) cell.colour = colours.*grade.colour;
    return cell;
}

}  // namespace kavo
