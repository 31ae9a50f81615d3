#include "extract/text_finder.h"

#include <algorithm>
#include <cstring>

namespace qv {
namespace {

char Folded(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

bool IsLetter(char c) { return c >= 'a' && c <= 'z'; }

bool MatchesFolded(const char* at, std::string_view needle) {
    for (std::size_t i = 0; i < needle.size(); ++i)
        if (Folded(at[i]) != needle[i]) return false;
    return true;
}

// The first start in [from, to) of a match in the text; `to` when there is none.
std::size_t Search(std::string_view text, std::string_view needle, bool foldCase, std::size_t from, std::size_t to) {
    const char first = needle.front();
    const bool bothCases = foldCase && IsLetter(first);
    for (std::size_t at = from; at < to; ++at) {
        if (bothCases) {
            while (at < to && Folded(text[at]) != first) ++at;
            if (at == to) return to;
        } else {
            const void* hit = std::memchr(text.data() + at, first, to - at);
            if (hit == nullptr) return to;
            at = static_cast<std::size_t>(static_cast<const char*>(hit) - text.data());
        }
        if (foldCase ? MatchesFolded(text.data() + at, needle) : text.compare(at, needle.size(), needle) == 0) return at;
    }
    return to;
}

}  // namespace

std::size_t TextFinder::Find(std::string_view text, std::string_view needle, bool foldCase, std::size_t from, std::size_t limit) {
    limit = std::min(limit, text.size());
    if (limit < needle.size() || from > limit - needle.size()) return kNone;
    const std::size_t to = limit - needle.size() + 1;  // matches start before this
    if (from < searchedFrom_ || from > searchedTo_) {
        searchedFrom_ = searchedTo_ = from;
        found_ = kNone;
    }
    if (found_ != kNone && from <= found_) return found_ < to ? found_ : kNone;
    if (to <= searchedTo_) return kNone;
    const std::size_t start = std::max(from, searchedTo_);
    const std::size_t hit = Search(text, needle, foldCase, start, to);
    searchedTo_ = hit;
    found_ = hit < to ? hit : kNone;
    return found_;
}

}  // namespace qv
