#pragma once

#include <QClipboard>
#include <QGuiApplication>

#include "platform/pasteboard.h"
#include "ui/qt/widgets/text.h"

namespace quibbly {

/// The desktop's clipboard.
class QtPasteboard final : public Pasteboard {
 public:
  void clear() override { QGuiApplication::clipboard()->clear(); }
  void setText(std::string_view text) override { QGuiApplication::clipboard()->setText(qtText(text)); }
};

}  // namespace quibbly
