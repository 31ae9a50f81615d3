// Small operations on texts that every part of the program shares. A text is a row of bytes; nothing here knows
// an encoding, except that letters are turned in ASCII only. Positions are 0-based, `std::string::npos` is "not found".
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qv {

// The text without the blanks (0x20 only) at its left, its right or both ends.
std::string_view TrimLeft(std::string_view text);
std::string_view TrimRight(std::string_view text);
std::string_view Trim(std::string_view text);

// The text with ASCII A to Z turned into a to z; all other bytes stay.
std::string Lower(std::string_view text);

bool StartsWith(std::string_view text, std::string_view beginning);
bool EndsWith(std::string_view text, std::string_view end);
bool Contains(std::string_view text, std::string_view part);  // an empty part is contained in every text

// StartsWith on the lower-cased text; `lowerBeginning` is given in lower case.
bool StartsWithLower(std::string_view text, std::string_view lowerBeginning);

// The text with every occurrence of `what` replaced, from the left, each search going on behind the replacement.
// An empty `what` changes nothing.
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view by);

// Trimmed text between two blanks: the form of the list fields of a site record.
std::string BetweenBlanks(std::string_view text);

}  // namespace qv
