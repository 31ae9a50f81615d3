#include "session/link_table.h"

#include "text/basic_text.h"
#include "text/characters.h"

namespace qv {

void LinkFlag::SetStatus(std::string_view status) {
    constexpr std::size_t kWidth = 6;
    Status = std::string(FitBytes(status, kWidth));
    Status.resize(kWidth, ' ');
}

std::string_view LinkFlag::TrimmedStatus() const { return Trim(Status); }

void LinkTable::Clear() {
    Touch();
    LinkCount = 0;
    LinkTexts.assign(1, "");
    LinkUrls.assign(1, "");
    LinkFlags.assign(1, LinkFlag{' ', "      "});
    LinkPaths.assign(1, "");
}

void LinkTable::Add(std::string text, std::string url, LinkFlag flag, std::string path) {
    Touch();
    ++LinkCount;
    LinkTexts.push_back(std::move(text));
    LinkUrls.push_back(std::move(url));
    LinkFlags.push_back(std::move(flag));
    LinkPaths.push_back(std::move(path));
}

void GoodLinkList::Add(std::string address) {
    GoodLinks_.push_back(std::move(address));
    index_.insert(GoodLinks_.back());
}

void GoodLinkList::Clear() {
    index_.clear();
    GoodLinks_.clear();
}

}  // namespace qv
