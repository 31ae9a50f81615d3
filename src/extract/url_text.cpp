#include "extract/url_text.h"

#include <algorithm>
#include <array>

#include "text/basic_text.h"
#include "text/characters.h"

namespace qv {
namespace {

struct Code {
    std::string_view code;
    char character;
};

// In the order in which decoding takes them.
constexpr std::array<Code, 23> kCodes = {{{"%20", ' '}, {"%3C", '<'}, {"%3E", '>'},  {"%23", '#'}, {"%25", '%'}, {"%7B", '{'},
                                          {"%7D", '}'}, {"%7C", '|'}, {"%5C", '\\'}, {"%5E", '^'}, {"%7E", '~'}, {"%5B", '['},
                                          {"%5D", ']'}, {"%60", '`'}, {"%3B", ';'},  {"%2F", '/'}, {"%3F", '?'}, {"%3A", ':'},
                                          {"%40", '@'}, {"%3D", '='}, {"%26", '&'},  {"%24", '$'}, {"%27", '\''}}};
constexpr std::string_view kEncoded = " <>{}|\\^[]`;@$'";

std::string_view CodeOf(char character) {
    const auto found = std::find_if(kCodes.begin(), kCodes.end(), [&](const Code& c) { return c.character == character; });
    return found->code;
}

bool IsLetterOrDigit(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

// Where the path ends for the search of an extension: before the last "?", else before the last "#", behind `from`.
std::size_t PathEnd(std::string_view address, std::size_t from) {
    for (const char mark : {'?', '#'}) {
        if (address.find(mark) == std::string_view::npos) continue;
        const auto last = address.rfind(mark);
        return last >= from ? last : address.size();
    }
    return address.size();
}

// The extension of what stands behind `from`, with its dot; empty when there is none.
std::string_view Extension(std::string_view address, std::size_t from) {
    const std::size_t end = PathEnd(address, from);
    const auto dot = address.substr(0, end).rfind('.');
    if (dot == std::string_view::npos || dot < from) return {};
    std::string_view extension = address.substr(dot, end - dot);
    const auto slash = extension.find('/');
    return slash == std::string_view::npos ? extension : Trim(extension.substr(0, slash));
}

}  // namespace

void ConvertSlashes(std::string& text, std::int16_t direction) {
    std::replace(text.begin(), text.end(), direction == 0 ? '/' : '\\', direction == 0 ? '\\' : '/');
}

void MakeFileNameText(std::string& text) {
    const auto scheme = text.find("://");
    if (scheme != std::string::npos) text.erase(0, scheme + 3);
    if (!IsAscii(text) && IsUtf8(text))  // a character of several bytes is one
        text.erase(std::remove_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }),
                   text.end());
    for (char& c : text)
        if (!IsLetterOrDigit(c)) c = '_';
}

bool IsIgnoredDocument(std::string_view address, std::string_view documentTypes,
                       const std::vector<std::string>& ignoreOpenPathList) {
    std::size_t slashes = 0;
    std::size_t path = 0;  // how many characters reach through the third "/"; 0 while there is none
    for (std::size_t i = 0; i < address.size() && slashes < 3; ++i)
        if (address[i] == '/' && ++slashes == 3) path = i + 1;
    if (slashes == 2 || (slashes == 3 && path == address.size())) return false;
    const std::string_view extension = Extension(address, path);
    if (!extension.empty() && !Contains(documentTypes, " " + Lower(extension) + " ")) return true;
    return IsIgnoredLinkPath(address, ignoreOpenPathList);
}

bool IsIgnoredLinkPath(std::string_view address, const std::vector<std::string>& ignoreLinkPathList) {
    return std::any_of(ignoreLinkPathList.begin(), ignoreLinkPathList.end(),
                       [&](const std::string& entry) { return Contains(address, entry); });
}

void PercentDecode(std::string& text) {
    if (text.find('%') == std::string::npos) return;
    for (const Code& code : kCodes) text = ReplaceAll(text, code.code, std::string_view(&code.character, 1));
}

void PercentEncode(std::string& text) {
    if (text.find_first_of(kEncoded) == std::string::npos && text.find("%3B") == std::string::npos) return;
    std::string encoded;
    for (const char c : text) {
        if (kEncoded.find(c) == std::string_view::npos)
            encoded += c;
        else
            encoded.append(CodeOf(c));
    }
    text = ReplaceAll(ReplaceAll(encoded, "&amp%3B", "&"), "&nbsp%3B", "%20");
}

}  // namespace qv
