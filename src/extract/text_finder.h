// Searching the same text again and again from places that move on, without reading any stretch of it twice.
#pragma once

#include <string_view>

namespace qv {

// Remembers the stretch that was searched last and what was found. Queries whose start moves on cost, all together, one pass
// over the text. A query that starts before the remembered stretch begins anew.
class TextFinder {
   public:
    static constexpr std::size_t kNone = std::string_view::npos;

    // Forgets what it knows: the text is another one.
    void Reset() { searchedFrom_ = searchedTo_ = 0, found_ = kNone; }

    // The first match that starts at `from` or behind it and ends at `limit` at the latest. `foldCase`: the needle is in lower
    // case, and the text's ASCII letters are turned for the comparison. The needle stays the same between two calls of Reset.
    std::size_t Find(std::string_view text, std::string_view needle, bool foldCase, std::size_t from, std::size_t limit);

   private:
    std::size_t searchedFrom_ = 0;
    std::size_t searchedTo_ = 0;  // no match starts from searchedFrom_ up to here, this place excluded
    std::size_t found_ = kNone;   // the match that starts at searchedTo_, if there is one
};

}  // namespace qv
