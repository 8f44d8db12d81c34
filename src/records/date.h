#pragma once

#include <chrono>

namespace quibbly {

/// A moment of wall-clock time, UTC, counted from 1970-01-01 00:00.
using Date = std::chrono::system_clock::time_point;

}  // namespace quibbly
