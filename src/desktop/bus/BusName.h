// Names that the program has on the session bus.
#pragma once

#include <QDBusConnection>
#include <QString>
#include <chrono>

namespace brenwick {

// The time for which the program waits for an answer over the bus.
inline constexpr std::chrono::milliseconds kBusPatience{1000};

// Takes the name. False: another program has it, or the bus does not answer within kBusPatience;
// the name is then not taken later either.
bool TakeBusName(const QDBusConnection& bus, const QString& name);

// Gives the name back, and waits for kBusPatience at most.
void ReleaseBusName(const QDBusConnection& bus, const QString& name);

}  // namespace brenwick
