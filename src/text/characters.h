// Characters of a text. A character is one code point where the whole text is valid UTF-8, else one byte.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qv {

bool IsUtf8(std::string_view text);
bool IsAscii(std::string_view text);  // no byte above 127

// How many characters the text has.
std::size_t CharacterCount(std::string_view text);

// The first `count` characters, or the whole text if it has no more.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

// The text with blanks added at its right until it has `count` characters; longer texts stay.
std::string PadCharacters(std::string_view text, std::size_t count);

// Appends a text to what `to` holds: padded with blanks to `width` characters, or, when it is longer, its first `cut` characters
// and `dots`.
void AppendCell(std::string& to, std::string_view text, std::size_t width, std::size_t cut, std::string_view dots);

// As many whole characters from the left as fit into `bytes` bytes.
std::string_view FitBytes(std::string_view text, std::size_t bytes);
void CutTo(std::string& text, std::size_t bytes);  // to what FitBytes gives

// The text as UTF-8: unchanged if it is valid UTF-8, else each byte taken as Windows-1252.
std::string AsUtf8(std::string_view text);

}  // namespace qv
