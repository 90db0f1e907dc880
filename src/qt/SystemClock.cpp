#include "qt/SystemClock.h"

#include <QDateTime>
#include <QLocale>

namespace brenwick {
namespace {

// A local time needs no zone any more: it is treated as UTC, which has no daylight-saving time.
QDateTime ToQt(LocalTime time) {
  return QDateTime::fromMSecsSinceEpoch(time.time_since_epoch().count(), Qt::UTC);
}

}  // namespace

LocalTime SystemClock::Now() {
  QDateTime now = QDateTime::currentDateTime();
  now = QDateTime(now.date(), now.time(), Qt::UTC);
  return LocalTime(std::chrono::milliseconds(now.toMSecsSinceEpoch()));
}

std::string SystemClock::DateText(LocalTime time) {
  return QLocale::system().toString(ToQt(time).date(), QLocale::ShortFormat).toStdString();
}

// With the seconds that the short format lacks, and without the zone that the long format has.
std::string SystemClock::TimeText(LocalTime time) {
  const QLocale locale = QLocale::system();
  const QString format = locale.timeFormat(QLocale::LongFormat).remove('t').trimmed();
  return locale.toString(ToQt(time).time(), format).toStdString();
}

}  // namespace brenwick
