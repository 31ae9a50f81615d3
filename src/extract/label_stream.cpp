#include "extract/label_stream.h"

#include <algorithm>

#include "extract/link_text.h"
#include "platform/bounds.h"

namespace qv {
namespace {

// Text that is looked at for one label; entities that vanish can take more room than what remains.
constexpr std::size_t kLabelWindow = 8 * bounds::kLabelBytes;
constexpr std::size_t kNotFound = std::string_view::npos;

}  // namespace

std::size_t LabelStream::FindStart(std::size_t from) const {
    if (from == from_) return 0;
    const auto found = std::lower_bound(tagEnds_.begin(), tagEnds_.end(), std::make_pair(from, std::size_t{0}));
    return found != tagEnds_.end() && found->first == from ? found->second : kNotFound;
}

std::string LabelStream::Label(std::size_t from, std::size_t to) {
    std::size_t start = to == to_ && from >= from_ ? FindStart(from) : kNotFound;
    if (start == kNotFound) {
        from_ = from;
        to_ = to;
        tagEnds_.clear();
        text_ = StripTags(page_.substr(from, to - from),
                          [&](std::size_t at, std::size_t length) { tagEnds_.emplace_back(from + at, length); });
        start = 0;
    }
    return FinishLabelText(std::string_view(text_).substr(start, kLabelWindow));
}

}  // namespace qv
