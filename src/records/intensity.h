#pragma once

#include <array>
#include <string_view>

#include "records/raw_values.h"

namespace quibbly {

/// The tone setting. The raw value is stored.
enum class Intensity { gentle, sarcastic, savage };

template <>
inline constexpr auto rawValues<Intensity> = std::to_array<RawValue<Intensity, std::string_view>>({
    {Intensity::gentle, "gentle", "Gentle"},
    {Intensity::sarcastic, "sarcastic", "Sarcastic"},
    {Intensity::savage, "savage", "Savage"},
});

}  // namespace quibbly
