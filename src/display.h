#pragma once

#include <string>

#include "platform/x11/x11_handles.h"

namespace quibbly {

/// What windows can be shown on.
struct Display {
  /// The platform of Qt. Empty when there is none; a QApplication would end the program then.
  std::string platform;
  /// A connection to it beside Qt's, if it is one of X.
  x11::XDisplay x;
};

/// The display that `QT_QPA_PLATFORM` wishes for, if it is there, else that of the session.
[[nodiscard]] Display findDisplay();

}  // namespace quibbly
