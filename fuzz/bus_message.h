#pragma once

#include <string>
#include <string_view>
#include <systemd/sd-bus.h>

namespace quibbly::fuzz {

/// What is left of an input, taken piece by piece.
class Bytes {
 public:
  explicit Bytes(std::string_view input) : rest_(input) {}

  /// The next byte; 0 after the last one.
  [[nodiscard]] unsigned char byte();
  /// Up to the end of the line; a line that begins with '*' stands a thousand times, for texts longer than inputs are.
  [[nodiscard]] std::string text();

 private:
  std::string_view rest_;
};

/// Appends arguments of these types, with values from the bytes; false when the types or a value are none, and the
/// message is not to be sent.
[[nodiscard]] bool append(sd_bus_message* message, std::string_view types, Bytes& values, int depth = 0);

}  // namespace quibbly::fuzz
