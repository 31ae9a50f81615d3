// Composes the links file of a document again and again at little cost: a check run saves it every few rows, and little of it
// changes in between.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "session/link_table.h"

namespace qv {

// Keeps the file in blocks of links with the marks and statuses that they were composed of, and composes those blocks anew
// whose marks or statuses are others now. Another table, or a touched one (LinkTable::Generation), starts from nothing.
class LinkFileComposer {
   public:
    // The file's bytes, valid until the next call.
    std::string_view Compose(const LinkTable& links);
    std::size_t Size() const { return bytes_.size(); }  // of what was composed last

   private:
    struct Block {
        std::string bytes;
        std::string flags;  // seven characters a link: the mark and the status
    };
    static std::string FlagsOf(const LinkTable& links, std::size_t first, std::size_t end);
    static bool SameFlags(const LinkTable& links, std::size_t first, std::size_t end, const std::string& flags);

    std::vector<Block> blocks_;
    std::string bytes_;
    std::uint64_t generation_ = 0;
};

}  // namespace qv
