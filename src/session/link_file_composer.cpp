#include "session/link_file_composer.h"

#include <algorithm>
#include <cstring>

#include "session/session_files.h"

namespace qv {
namespace {

constexpr std::size_t kLinksPerBlock = 128;
constexpr std::size_t kStatusWidth = 6;

}  // namespace

std::string LinkFileComposer::FlagsOf(const LinkTable& links, std::size_t first, std::size_t end) {
    std::string flags;
    for (std::size_t i = first; i < end; ++i) flags += links.LinkFlags[i].Mark + links.LinkFlags[i].Status;
    return flags;
}

bool LinkFileComposer::SameFlags(const LinkTable& links, std::size_t first, std::size_t end, const std::string& flags) {
    if (flags.size() != (end - first) * (1 + kStatusWidth)) return false;
    const char* at = flags.data();
    for (std::size_t i = first; i < end; ++i, at += 1 + kStatusWidth) {
        const LinkFlag& flag = links.LinkFlags[i];
        if (flag.Mark != *at || flag.Status.size() != kStatusWidth) return false;
        if (std::memcmp(flag.Status.data(), at + 1, kStatusWidth) != 0) return false;
    }
    return true;
}

std::string_view LinkFileComposer::Compose(const LinkTable& links) {
    const std::size_t end = links.LinkTexts.size();
    if (links.Generation() != generation_) blocks_.clear();
    generation_ = links.Generation();
    blocks_.resize((end - 1 + kLinksPerBlock - 1) / kLinksPerBlock);
    std::size_t size = 0;
    for (std::size_t i = 0; i < blocks_.size(); ++i) {
        Block& block = blocks_[i];
        const std::size_t first = 1 + i * kLinksPerBlock;
        const std::size_t last = std::min(end, first + kLinksPerBlock);
        if (block.flags.empty() || !SameFlags(links, first, last, block.flags)) {
            block.flags = FlagsOf(links, first, last);
            ComposeLinks(links, first, last, block.bytes);
        }
        size += block.bytes.size();
    }
    bytes_.resize(size);
    char* to = bytes_.data();
    for (const Block& block : blocks_) to = std::copy(block.bytes.begin(), block.bytes.end(), to);
    return bytes_;
}

}  // namespace qv
