#include "session/settings.h"

#include "text/basic_text.h"

namespace qv {

std::vector<std::string> SplitBlankList(std::string_view text) {
    std::vector<std::string> parts;
    std::string word;
    for (const char c : TrimLeft(text)) {
        if (c != ' ') {
            word += c;
            continue;
        }
        parts.push_back(word);
        word.clear();
    }
    return parts;
}

}  // namespace qv
