// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/clickable_label.h"

namespace kavo {

/// An address that opens in the browser; a frame around it shows that it has the focus.
class LinkLabel final : public ClickableLabel
{
    Q_OBJECT

public:
    using ClickableLabel::ClickableLabel;

    /// In a colour that is a link's on what lies behind it.
    void showAsLink();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace kavo
