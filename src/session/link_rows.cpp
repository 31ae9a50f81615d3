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

void NumberedText(std::string& label, std::int32_t number, std::string_view text) {
    std::array<char, 12> digits{};
    const char* begin = digits.data();
    const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    label.assign(begin, end).append(". ").append(Trim(text));
}

namespace {

void AppendLinkRow(std::string& to, std::int32_t number, std::string_view text, std::string_view target, std::string_view status) {
    thread_local std::string label;  // keeps its room from row to row
    NumberedText(label, number, text);
    const std::string_view trimmed = Trim(status);
    AppendCell(to, trimmed, kStatusWidth, trimmed.size(), "");
    AppendCell(to, label, kLabelWidth, kLabelWidth - 2, "..");
    to.append(" [").append(target).append("]");
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
        const bool groups = Contains(links.LinkUrls[i], "SUBTITLE") || Contains(links.LinkUrls[i], "GROUP:");
        if (settings_.ProgramMode == kBookmarksMode && groups) return;
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
