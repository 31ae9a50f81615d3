// Text routines for addresses. Their tables are short and uneven on purpose; an address comes out exactly as they say.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

// Direction 0: every "/" becomes "\". Any other value: every "\" becomes "/".
void ConvertSlashes(std::string& text, std::int16_t direction);

// The text without what stands up to its first "://", each character that is no ASCII letter or digit replaced by "_".
void MakeFileNameText(std::string& text);

// Whether a site walk must not open this address. `documentTypes` holds extensions parted by blanks, with a blank at both ends;
// an empty entry of the path list is contained in every address.
bool IsIgnoredDocument(std::string_view address, std::string_view documentTypes,
                       const std::vector<std::string>& ignoreOpenPathList);

// Whether an address contains an entry of the list, exactly and case-sensitively.
bool IsIgnoredLinkPath(std::string_view address, const std::vector<std::string>& ignoreLinkPathList);

// Replaces the codes of a fixed table by their characters, one code after the other over the whole text.
void PercentDecode(std::string& text);

// Replaces the characters of a narrower list by their codes, and mends two remnants of entities.
void PercentEncode(std::string& text);

}  // namespace qv
