// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/libreoffice/office_launcher.h"

#include <com/sun/star/bridge/XBridge.hpp>
#include <com/sun/star/connection/XConnection.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>

namespace kavo {

/// The user's own office on the screen, or one without windows on a profile of its own (a file URL).
struct OfficeChoice
{
    std::string headlessProfileUrl = {};  ///< empty: the user's office
};

/// An office that has been started, and the pipe to it. The office stays when this ends, unless that is
/// because of a stop while it was still starting. A stop also ends every later call to it with an exception.
class OfficeConnection final
{
public:
    /// Throws a std::exception when no office answers or `stop` is asked for, css::uno::Exception on a failure
    /// in the office.
    OfficeConnection(const OfficeChoice& choice, const std::stop_token& stop);
    ~OfficeConnection();
    OfficeConnection(const OfficeConnection&) = delete;
    OfficeConnection& operator=(const OfficeConnection&) = delete;

    [[nodiscard]] const css::uno::Reference<css::uno::XComponentContext>& office() const { return m_office; }

    /// Asks the office to end, if it is the one that was started here and not the user's, which only got a call.
    void endStarted() const { m_launcher->terminate(); }

    /// Waits until the office has ended; false when it has not by then.
    [[nodiscard]] bool waitForEnd(std::chrono::seconds atMost);

private:
    OfficeConnection();
    void connect(const std::string& pipe, const std::stop_token& stop);
    void hold(const css::uno::Reference<css::connection::XConnection>& pipe);
    void cut();

    css::uno::Reference<css::uno::XComponentContext> m_local;
    std::optional<OfficeLauncher> m_launcher;
    std::mutex m_mutex;  ///< a stop comes from another thread: it may touch the pipe, and nothing else
    bool m_isCut = false;
    css::uno::Reference<css::connection::XConnection> m_pipe;
    css::uno::Reference<css::bridge::XBridge> m_bridge;
    css::uno::Reference<css::uno::XComponentContext> m_office;
    std::optional<std::stop_callback<std::function<void()>>> m_onStop;
};

}  // namespace kavo
