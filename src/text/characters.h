// Characters of a text. A character is one code point where the whole text is valid UTF-8, else one byte.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qv {

bool IsUtf8(std::string_view text);

// How many characters the text has.
std::size_t CharacterCount(std::string_view text);

// The first `count` characters, or the whole text if it has no more.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

// The text with blanks added at its right until it has `count` characters; longer texts stay.
std::string PadCharacters(std::string_view text, std::size_t count);

// As many whole characters from the left as fit into `bytes` bytes.
std::string_view FitBytes(std::string_view text, std::size_t bytes);

// The text as UTF-8: unchanged if it is valid UTF-8, else each byte taken as Windows-1252.
std::string AsUtf8(std::string_view text);

}  // namespace qv
