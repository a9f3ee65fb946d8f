// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/services.h"

#include <QDialog>

#include <exception>
#include <filesystem>

namespace kavo {

/// A window opened from the main window. It closes at the release of Escape, whatever control has the
/// focus (never at the press, as dialogs do by themselves), through closeRequested().
class SecondaryWindow : public QDialog
{
    Q_OBJECT

public:
    ~SecondaryWindow() override;

protected:
    SecondaryWindow(const Services& services, QWidget* parent);

    [[nodiscard]] const Services& services() const { return m_services; }
    [[nodiscard]] Session& session() const { return m_services.session; }

    /// Folder of the user in line 1 of `curUser.dat`. Throws RunTimeError when that is missing.
    [[nodiscard]] std::filesystem::path currentUserFolder() const;

    /// Reads the current user's colours and paints the window with them; the defaults without a file.
    void applyColours();

    /// Reports an error of the loading once the window is on the screen with what could be read.
    void reportOnceShown(std::exception_ptr error);

    /// What Escape does; by default the window closes.
    virtual void closeRequested();

    /// Whether Escape closes the window at all.
    [[nodiscard]] virtual bool closesOnEscape() const { return true; }

    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] bool isInside(const QObject* receiver) const;

    Services m_services;
    bool m_escapeBelongsElsewhere = false;  ///< it was pressed in a box or a list in front of this window
};

}  // namespace kavo
