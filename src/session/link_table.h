// The links of the selected document, as four parallel arrays, and the addresses found good in this session.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace qv {

struct LinkFlag {
    char Mark = 'X';                // 'X': selected in the list and checked by the next run; ' ': not
    std::string Status = "      ";  // six characters, blank-padded

    bool Marked() const { return Mark == 'X'; }
    void SetStatus(std::string_view status);  // cut to whole characters that fit six bytes, or padded
    std::string_view TrimmedStatus() const;
};

// All arrays are 1-based: element 0 exists and holds nothing. They are always of the same size, LinkCount + 1.
class LinkTable {
   public:
    LinkTable() { Clear(); }

    std::int32_t LinkCount = 0;
    std::vector<std::string> LinkTexts;
    std::vector<std::string> LinkUrls;
    std::vector<LinkFlag> LinkFlags;
    std::vector<std::string> LinkPaths;  // in Local mode the file that the link maps to, else empty

    void Clear();
    void Add(std::string text, std::string url, LinkFlag flag, std::string path);
    // Another number for another table, and after Touch. Who changes texts, addresses or paths in place touches the table.
    std::uint64_t Generation() const { return generation_; }
    void Touch() { ++generation_; }
    bool Has(std::int32_t link) const { return link >= 1 && link <= LinkCount; }

   private:
    std::uint64_t generation_ = 0;
};

// GoodLinks: looked through before the network is asked. Exact, case-sensitive.
class GoodLinkList {
   public:
    void Add(std::string address);
    bool Contains(std::string_view address) const { return index_.count(address) != 0; }
    void Clear();
    std::int32_t GoodLinkCount() const { return static_cast<std::int32_t>(GoodLinks_.size()); }
    const std::deque<std::string>& GoodLinks() const { return GoodLinks_; }  // in the order in which they were added

   private:
    std::deque<std::string> GoodLinks_;  // its elements never move: the index points into them
    std::unordered_set<std::string_view> index_;
};

}  // namespace qv
