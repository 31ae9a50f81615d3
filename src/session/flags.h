// The 16-bit flag form of files and rules: -1 set, 0 clear; tests are for non-zero.
#pragma once

#include <cstdint>

namespace qv {

using Flag = std::int16_t;
inline constexpr Flag kSet = -1;
inline constexpr Flag kClear = 0;
inline constexpr Flag FlagOf(bool on) { return on ? kSet : kClear; }

}  // namespace qv
