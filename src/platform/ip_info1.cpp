#include "platform/ip_info1.h"

namespace qv {

bool IsImpossibleHostName(const std::string& name) {
    constexpr std::size_t kLongestLabel = 63;
    constexpr std::size_t kLongestName = 253;
    if (name.empty() || name.size() > kLongestName) return true;
    std::size_t label = 0;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto byte = static_cast<unsigned char>(name[i]);
        if (byte <= 0x20 || byte == 0x7F) return true;
        if (name[i] != '.') {
            if (++label > kLongestLabel) return true;
            continue;
        }
        if (label == 0) return true;
        label = 0;
    }
    return false;
}

}  // namespace qv
