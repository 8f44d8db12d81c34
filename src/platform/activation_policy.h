#pragma once

namespace quibbly {

/// `regular` applications show their windows in the taskbar; `accessory` ones have windows but keep out of it.
enum class ActivationPolicy { regular, accessory };

}  // namespace quibbly
