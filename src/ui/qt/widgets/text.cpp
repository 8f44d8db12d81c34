#include "ui/qt/widgets/text.h"

#include <QDateTime>
#include <QLocale>

namespace quibbly {

std::string shortTime(std::chrono::system_clock::time_point moment) {
  const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(moment.time_since_epoch()).count();
  const QTime time = QDateTime::fromMSecsSinceEpoch(milliseconds).time();
  const QLocale locale = QLocale::system();
  // The short style of the locale that is no country's has seconds.
  const bool hasSeconds = locale.timeFormat(QLocale::ShortFormat).contains("ss");
  return (hasSeconds ? time.toString("HH:mm") : locale.toString(time, QLocale::ShortFormat)).toStdString();
}

}  // namespace quibbly
