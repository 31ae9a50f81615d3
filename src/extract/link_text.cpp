#include "extract/link_text.h"

#include <algorithm>

#include "text/basic_text.h"

namespace qv {

std::string CleanLinkAddress(std::string_view raw) {
    std::string text(raw);
    if (EndsWith(text, ">")) text.pop_back();
    const auto quote = text.find('"', 1);
    if (!text.empty() && quote != std::string::npos) text.resize(quote);
    return text.find('"') == std::string::npos ? text : ReplaceAll(text, "\"", "");
}

std::string FinishLabelText(std::string_view text) {
    if (text.find('&') == std::string_view::npos) return std::string(Trim(text));
    return std::string(Trim(ReplaceAll(ReplaceAll(text, "&amp;", "&"), "&nbsp;", "")));
}

std::string CleanLabelText(std::string_view raw) {
    return FinishLabelText(StripTags(raw, [](std::size_t, std::size_t) {}));
}

std::string EmptyLabel(bool holdsIsMap, bool holdsImage) {
    if (holdsIsMap) return "[Image Map Link]";
    return holdsImage ? "[Image HyperLink]" : "[None]";
}

void CompleteServerAddress(std::string& address) {
    if (std::count(address.begin(), address.end(), '/') == 2) address += "/";
}

}  // namespace qv
