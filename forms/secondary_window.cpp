// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/secondary_window.h"

#include "core/session.h"
#include "core/users.h"
#include "forms/event_guard.h"
#include "forms/screen_fit.h"
#include "forms/window_painting.h"

#include <QApplication>
#include <QKeyEvent>

#include <utility>

namespace kavo {

SecondaryWindow::SecondaryWindow(const Services& services, QWidget* parent) : QDialog(parent), m_services(services)
{
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    qApp->installEventFilter(this);
}

SecondaryWindow::~SecondaryWindow() = default;

std::filesystem::path SecondaryWindow::currentUserFolder() const
{
    const auto& programFolder = session().programFolder;
    return userFolder(programFolder, readCurrentUser(programFolder));
}

void SecondaryWindow::applyColours()
{
    paintWindow(*this, readWindowColours(currentUserFolder()));
}

void SecondaryWindow::reportOnceShown(std::exception_ptr error)
{
    const auto report = [error = std::move(error)] { guarded([&error] { std::rethrow_exception(error); }); };
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
}

void SecondaryWindow::closeRequested()
{
    close();
}

bool SecondaryWindow::isInside(const QObject* receiver) const
{
    const auto* widget = qobject_cast<const QWidget*>(receiver);
    return widget != nullptr && widget->window() == this;
}

bool SecondaryWindow::eventFilter(QObject* watched, QEvent* event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    const bool isRelease = event->type() == QEvent::KeyRelease;
    if ((!isPress && !isRelease) || !watched->isWidgetType()) return QDialog::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Escape || key->isAutoRepeat()) return QDialog::eventFilter(watched, event);
    if (isPress) {
        // A message box closes at the press; the release that follows reaches this window and is not meant
        // for it.
        m_escapeBelongsElsewhere = !isInside(watched);
        return false;
    }
    if (!isInside(watched) || !closesOnEscape()) return false;
    const bool isMeant = !m_escapeBelongsElsewhere;
    m_escapeBelongsElsewhere = false;
    if (isMeant) guarded([this] { closeRequested(); });
    return true;
}

void SecondaryWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        event->accept();
    else
        QDialog::keyPressEvent(event);
}

void SecondaryWindow::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) fitToScreen(*this);
    QDialog::showEvent(event);  // places it, by its size
}

}  // namespace kavo
