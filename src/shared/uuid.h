#pragma once

#include <string>

#include "platform/secure_random.h"

namespace quibbly {

/// A fresh random UUID (RFC 9562, version 4) as text of 36 characters, letters in upper case.
[[nodiscard]] std::string freshUuid(SecureRandom& random);

}  // namespace quibbly
