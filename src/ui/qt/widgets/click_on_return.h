#pragma once

#include <QAbstractButton>
#include <QKeyEvent>

namespace quibbly {

/// Qt clicks a button on the space bar alone. Whether the key was one that also does.
inline bool clickOnReturn(QAbstractButton& button, const QKeyEvent& key) {
  if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) return false;
  button.click();
  return true;
}

}  // namespace quibbly
