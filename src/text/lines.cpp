#include "text/lines.h"

namespace qv {

std::string_view LineReader::Next() {
    if (AtEnd()) return {};
    const std::size_t end = bytes_.find_first_of("\r\n", at_);
    const std::string_view line = bytes_.substr(at_, end == std::string_view::npos ? end : end - at_);
    if (end == std::string_view::npos) {
        at_ = bytes_.size();
    } else {
        const bool both = bytes_[end] == '\r' && end + 1 < bytes_.size() && bytes_[end + 1] == '\n';
        at_ = end + (both ? 2 : 1);
    }
    return line;
}

}  // namespace qv
