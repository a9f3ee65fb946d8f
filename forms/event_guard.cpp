#include "forms/event_guard.h"

#include <QCoreApplication>

namespace kavo {

void reportError(const std::exception& error)
{
    auto* reporter = dynamic_cast<ErrorReporter*>(QCoreApplication::instance());
    if (reporter == nullptr) throw;
    reporter->report(error);
}

}  // namespace kavo
