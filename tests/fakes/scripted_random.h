#pragma once

#include "platform/secure_random.h"

namespace quibbly::fakes {

/// Gives the number that the test set, and counts how often it was asked. Not 0 where a distribution may refuse numbers:
/// it would ask for another one for ever.
class ScriptedRandom : public SecureRandom {
 public:
  result_type next = max() / 2;
  int draws = 0;

  [[nodiscard]] result_type operator()() override {
    ++draws;
    return next;
  }
};

}  // namespace quibbly::fakes
