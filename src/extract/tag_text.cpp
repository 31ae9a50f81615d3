#include "extract/tag_text.h"

#include <algorithm>

namespace qv {

std::size_t TagText::Find(Needle role, std::string_view needle, bool foldCase, std::size_t from, std::size_t limit) {
    const auto which = static_cast<std::size_t>(role);
    if (from < line_.size()) {
        const std::size_t at = finders_.line[which].Find(line_, needle, foldCase, from, std::min(limit, line_.size()));
        if (at != kNone) return at;
    }
    if (limit <= PageStart()) return kNone;
    const bool fromLine = from <= PageStart();
    const std::size_t start = fromLine ? nextLine_ : PageOffset(from);
    const std::size_t at =
        (fromLine ? finders_.fromLine : finders_.inPage)[which].Find(page_, needle, foldCase, start, PageOffset(limit));
    return at == kNone ? kNone : at - nextLine_ + PageStart();
}

std::size_t TagText::FindBlank(std::size_t from, std::size_t limit) {
    const std::size_t inLine = Find(Needle::Blank, " ", false, from, std::min(limit, line_.size()));
    if (inLine != kNone) return inLine;
    if (from <= line_.size() && line_.size() < limit) return line_.size();
    const std::size_t blank = Find(Needle::Blank, " ", false, from, limit);
    const std::size_t feed = Find(Needle::LineEnd, "\n", false, from, limit);
    return std::min({blank, feed, Find(Needle::OldLineEnd, "\r", false, from, limit)});  // kNone is the greatest
}

char TagText::At(std::size_t place) const {
    if (place < line_.size()) return line_[place];
    if (place == line_.size()) return ' ';
    const std::size_t offset = PageOffset(place);
    const char c = offset < page_.size() ? page_[offset] : ' ';
    return c == '\r' || c == '\n' ? ' ' : c;
}

std::size_t TagText::Next(std::size_t place) const {
    if (!InPage(place)) return place + 1;
    const std::size_t offset = PageOffset(place);
    const bool both = offset + 1 < page_.size() && page_[offset] == '\r' && page_[offset + 1] == '\n';
    return place + (both ? 2 : 1);
}

std::string TagText::Cut(std::size_t from, std::size_t to, std::size_t most) const {
    std::string text;
    if (from < line_.size()) text = std::string(line_.substr(from, std::min({to - from, most, line_.size() - from})));
    for (std::size_t place = std::max(from, line_.size()); place < to && text.size() < most; place = Next(place))
        text += At(place);
    return text;
}

}  // namespace qv
