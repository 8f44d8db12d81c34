#pragma once

namespace quibbly {

/// Names one registration with the cross-process centre, for unregistering. It owns nothing.
class ObserverToken {
 public:
  explicit ObserverToken(void* box) : observer(box) {}

  /// The `HandlerBox` of the registration.
  void* observer;
};

}  // namespace quibbly
