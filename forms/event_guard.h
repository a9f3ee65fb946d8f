// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <exception>
#include <functional>
#include <type_traits>

/// Errors of event procedures end at the procedure: Qt's widgets are built without exceptions, and what
/// passes through them leaves things behind.
namespace kavo {

/// Shows the standard error report. The application object is one.
class ErrorReporter
{
public:
    virtual ~ErrorReporter() = default;
    virtual void report(const std::exception& error) = 0;
};

/// Hands an error to the application; throws it on where the application is no ErrorReporter. To be
/// called while the error is being handled.
void reportError(const std::exception& error);

/// Runs what an event calls for; an error in it is reported, and the program goes on.
template <typename Procedure>
void guarded(Procedure procedure)
{
    try {
        procedure();
    } catch (const std::exception& error) {
        reportError(error);
    }
}

/// Calls a procedure, a member of `receiver` or a function, with these arguments or with none.
template <typename Procedure, typename Receiver, typename... Arguments>
void callWithFitting(Procedure procedure, Receiver* receiver, const Arguments&... arguments)
{
    if constexpr (std::is_invocable_v<Procedure, Receiver*, const Arguments&...>)
        std::invoke(procedure, receiver, arguments...);
    else if constexpr (std::is_invocable_v<Procedure, Receiver*>)
        std::invoke(procedure, receiver);
    else if constexpr (std::is_invocable_v<Procedure, const Arguments&...>)
        std::invoke(procedure, arguments...);
    else
        std::invoke(procedure);
}

/// Connects a signal to an event procedure (a member of the receiver, or a function), guarded. The
/// procedure takes all arguments of the signal or none.
template <typename Sender, typename Signal, typename Receiver, typename Procedure>
void on(Sender* sender, Signal signal, Receiver* receiver, Procedure procedure)
{
    // The result type is named so that Qt can ask what may be called without compiling it.
    QObject::connect(sender, signal, receiver, [receiver, procedure](const auto&... arguments) -> void {
        guarded([&] { callWithFitting(procedure, receiver, arguments...); });
    });
}

}  // namespace kavo
