// Numbers as the program's files and fields write them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qv {

// The numeric value that a text begins with: blanks are passed over, then an optional sign, digits and a fraction are
// taken; what follows is ignored. 0 when there are no digits. Never fails; huge values come back as they are.
double LeadingNumber(std::string_view text);

// The leading value as an integer, cut towards zero; nothing when it is beyond the type's range.
std::optional<std::int16_t> LeadingInt16(std::string_view text);
std::optional<std::int32_t> LeadingInt32(std::string_view text);

// The value rounded to the nearest 16-bit integer, halves to the even one; values beyond the range give the nearest bound.
std::int16_t RoundToInt16(double value);

// A number in print form: a leading blank for a value that isn't negative, a minus sign otherwise (" 7", "-1").
std::string PrintForm(long long value);

// At least five digits, zero-filled: the text form of a cache number (42 gives "00042").
std::string FiveDigits(long long value);

}  // namespace qv
