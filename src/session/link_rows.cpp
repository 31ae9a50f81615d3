#include "session/link_rows.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "text/basic_text.h"
#include "text/characters.h"

namespace qv {
namespace {
constexpr std::size_t kStatusWidth = 6;
constexpr std::size_t kLabelWidth = 32;
}

namespace {

// The digits of a link's number with what stands behind them.
class NumberText {
   public:
    explicit NumberText(std::int32_t number) {
        char* end = std::to_chars(text_.data(), text_.data() + text_.size() - 2, number).ptr;
        *end++ = '.';
        *end++ = ' ';
        size_ = static_cast<std::size_t>(end - text_.data());
    }
    std::string_view Text() const { return {text_.data(), size_}; }

   private:
    std::array<char, 16> text_{};
    std::size_t size_ = 0;
};

// A place in a text that has the room: pieces go in one behind the other.
class Place {
   public:
    explicit Place(char* at) : at_(at) {}
    Place& Put(std::string_view piece) {
        at_ += piece.copy(at_, piece.size());
        return *this;
    }
    Place& Blanks(std::size_t count) {
        at_ = std::fill_n(at_, count, ' ');
        return *this;
    }

   private:
    char* at_;
};

// What both columns of a row come to when all is ASCII, which nearly all links are.
void PutCell(Place& place, std::string_view front, std::string_view text, std::size_t width, std::size_t cut, std::string_view dots) {
    place.Put(front);
    if (front.size() + text.size() <= width)
        place.Put(text).Blanks(width - front.size() - text.size());
    else
        place.Put(text.substr(0, cut - front.size())).Put(dots);
}

std::size_t CellSize(std::string_view front, std::string_view text, std::size_t width, std::size_t cut, std::string_view dots) {
    return front.size() + text.size() <= width ? width : cut + dots.size();
}

}  // namespace

void AppendNumberedCell(std::string& to, std::int32_t number, std::string_view text, std::size_t width, std::size_t cut,
                        std::string_view dots) {
    const NumberText numbered(number);
    text = Trim(text);
    if (!IsAscii(text)) {
        AppendCell(to, std::string(numbered.Text()).append(text), width, cut, dots);
        return;
    }
    const std::size_t before = to.size();
    to.resize(before + CellSize(numbered.Text(), text, width, cut, dots));
    Place place(to.data() + before);
    PutCell(place, numbered.Text(), text, width, cut, dots);
}

namespace {

void AppendLinkRow(std::string& to, std::int32_t number, std::string_view text, std::string_view target, std::string_view status) {
    constexpr std::string_view kOpen = " [";
    constexpr std::string_view kDots = "..";
    status = Trim(status);
    text = Trim(text);
    if (!IsAscii(text) || !IsAscii(status) || status.size() > kStatusWidth) {
        AppendCell(to, status, kStatusWidth, status.size(), "");
        AppendNumberedCell(to, number, text, kLabelWidth, kLabelWidth - kDots.size(), kDots);
        to.append(kOpen).append(target).append("]");
        return;
    }
    const std::size_t before = to.size();
    to.resize(before + kStatusWidth + kLabelWidth + kOpen.size() + target.size() + 1);
    Place place(to.data() + before);
    place.Put(status).Blanks(kStatusWidth - status.size());
    PutCell(place, NumberText(number).Text(), text, kLabelWidth, kLabelWidth - kDots.size(), kDots);
    place.Put(kOpen).Put(target).Put("]");
}

}  // namespace

std::string LinkRowText(std::int32_t number, std::string_view text, std::string_view target, std::string_view status) {
    std::string row;
    AppendLinkRow(row, number, text, target, status);
    return row;
}

void BuildLinkRowText(const LinkTable& links, std::int32_t link, std::string& row) {
    const auto i = static_cast<std::size_t>(link);
    AppendLinkRow(row, link, links.LinkTexts[i], links.LinkUrls[i], links.LinkFlags[i].Status);
}

bool IsHeading(std::string_view url) { return Contains(url, "SUBTITLE") || Contains(url, "GROUP:"); }

bool IsHiddenStatus(std::string_view status, bool persistentRedirectsOk) {
    if (status.empty() || status == "OK" || status == "OK *" || status.substr(0, 2) == "NA") return true;
    return persistentRedirectsOk && (status == "301" || status == "302");
}

StatusTone ToneOfStatus(std::string_view status) {
    if (status.empty()) return StatusTone::None;
    if (status == "OK" || status == "OK *") return StatusTone::Good;
    if (status == "301" || status == "302") return StatusTone::Redirected;
    if (status.substr(0, 2) == "NA") return StatusTone::Ignored;
    if (status == "-->") return StatusTone::Working;
    if (status == "STOP" || status == "SKIPD") return StatusTone::Interrupted;
    return StatusTone::Questionable;
}

std::string LinkRows::RowText(std::int32_t link, std::int32_t number) const {
    const LinkTable& links = session_.Links;
    const auto i = static_cast<std::size_t>(link);
    const std::string_view path = Trim(links.LinkPaths[i]);
    const bool showsPath = !path.empty() && settings_.ProgramMode == kLocalMode;
    return LinkRowText(number, links.LinkTexts[i], showsPath ? path : std::string_view(links.LinkUrls[i]),
                       links.LinkFlags[i].TrimmedStatus());
}

void LinkRows::AddLinkRow(std::int32_t link) {
    const LinkTable& links = session_.Links;
    if (!links.Has(link)) return;
    const auto i = static_cast<std::size_t>(link);
    if (flags_.HideGoodLinks != 0) {
        if (IsHiddenStatus(links.LinkFlags[i].TrimmedStatus(), settings_.PersistentRedirectsOk != 0)) return;
        if (settings_.ProgramMode == kBookmarksMode && IsHeading(links.LinkUrls[i])) return;
    }
    list_.AddItem(RowText(link, link), link);
    list_.SetSelected(list_.Count() - 1, links.LinkFlags[i].Marked());
}

void LinkRows::AddAllRows() {
    for (std::int32_t link = 1; link <= session_.Links.LinkCount; ++link) AddLinkRow(link);
}

void LinkRows::RefreshLinkRow(int row) {
    const std::int32_t link = list_.ItemData(row);
    if (!session_.Links.Has(link)) return;
    list_.SetText(row, RowText(link, row + 1));
    list_.SetSelected(row, session_.Links.LinkFlags[static_cast<std::size_t>(link)].Marked());
}

void LinkRows::SetListExtent() {
    std::size_t longest = 0;
    for (int row = 0; row < list_.Count(); ++row) longest = std::max(longest, CharacterCount(list_.Text(row)));
    if (list_.Count() > 0) list_.SetHorizontalExtent(static_cast<long>(longest + 3) * fontNamePicture_.CharacterWidth());
}

}  // namespace qv
