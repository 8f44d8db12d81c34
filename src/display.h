#pragma once

namespace quibbly {

/// Whether there is a display that windows can be shown on; says to Qt which it is to use. To be called before the
/// QApplication is made, which ends the program when it finds none.
[[nodiscard]] bool chooseDisplay();

}  // namespace quibbly
