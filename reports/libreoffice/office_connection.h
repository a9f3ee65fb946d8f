#pragma once

#include "reports/libreoffice/office_launcher.h"

#include <com/sun/star/uno/XComponentContext.hpp>

#include <chrono>
#include <string>

namespace kavo {

/// The user's own office on the screen, or one without windows on a profile of its own (a file URL).
struct OfficeChoice
{
    std::string headlessProfileUrl = {};  ///< empty: the user's office
};

/// An office that has been started, and the pipe to it. The office stays when this ends.
class OfficeConnection final
{
public:
    /// Throws std::runtime_error when no office answers, css::uno::Exception on a failure in it.
    explicit OfficeConnection(const OfficeChoice& choice);
    ~OfficeConnection();
    OfficeConnection(const OfficeConnection&) = delete;
    OfficeConnection& operator=(const OfficeConnection&) = delete;

    [[nodiscard]] const css::uno::Reference<css::uno::XComponentContext>& office() const { return m_office; }

    /// Waits until the office has ended; false when it has not by then.
    [[nodiscard]] bool waitForEnd(std::chrono::seconds atMost);

private:
    OfficeConnection(const OfficeChoice& choice, const std::string& pipe);
    void connect(const std::string& pipe);

    OfficeLauncher m_launcher;
    css::uno::Reference<css::uno::XComponentContext> m_local;
    css::uno::Reference<css::uno::XComponentContext> m_office;
};

}  // namespace kavo
