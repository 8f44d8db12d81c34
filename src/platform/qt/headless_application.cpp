#include "platform/qt/headless_application.h"

#include <QCoreApplication>

namespace quibbly::qt_services {

void HeadlessApplication::terminate() {
  queue_.post([] { QCoreApplication::quit(); });
}

}  // namespace quibbly::qt_services
