#pragma once

#include <functional>

namespace quibbly {

/// What the cross-process centre hands back to a callback: the handler of one registration.
struct HandlerBox {
  std::function<void()> handler;
};

}  // namespace quibbly
