// What each kind of tag yields. The other half of the scanner: page_scanner.cpp finds the lines and the tags.
#include <algorithm>

#include "extract/link_text.h"
#include "extract/page_scanner.h"
#include "extract/url_text.h"
#include "platform/bounds.h"
#include "text/basic_text.h"
#include "text/characters.h"

namespace qv {
namespace {

constexpr std::size_t kNone = TagText::kNone;
constexpr std::size_t kLongLabel = 1024;            // from here on labels are shared (LabelStream)
constexpr std::size_t kChangedLabel = 1024 * 1024;  // what is cut out at most of a line that script was taken out of
constexpr std::size_t kMostAddress = bounds::kAddressBytes + 4096;

const char* AttributeOf(int kind) {
    // In the order of the kinds: the ones that are told by a quoted attribute.
    static constexpr std::array<const char*, 11> kAttributes = {nullptr, "href",       nullptr, "src", nullptr, nullptr,
                                                                "src",   "background", "src",   "src", "code"};
    return kAttributes[static_cast<std::size_t>(kind)];
}

const char* LabelOfKind(int kind) {
    static constexpr std::array<const char*, 11> kLabels = {
        "",        "[Image Map Link]",   "[Other]",    "[Frame]",   "[Meta Tag]",   "[Meta Tag]",
        "[Image]", "[Background Image]", "[MS Sound]", "[Plug-in]", "[Java Applet]"};
    return kLabels[static_cast<std::size_t>(kind)];
}

}  // namespace

std::string PageScanner::CutAddress(const TagText& tag, std::size_t from, std::size_t to) {
    std::string address = from < to ? tag.Cut(from, to, kMostAddress) : std::string();
    cutBytes_ += address.size();
    return address;
}

bool PageScanner::IsFiltered(TagText& tag, std::size_t from, std::size_t limit) {
    const auto has = [&](Needle role, std::string_view needle) { return tag.Find(role, needle, false, from, limit) != kNone; };
    return has(Needle::MailTo, "mailto:") || has(Needle::News, "news:") ||
           (settings_.ignoreJavaScript != 0 && has(Needle::JavaScript, "javascript:")) ||
           (!settings_.checkFtpLinks && has(Needle::Ftp, "ftp:"));
}

PageScanner::Inner PageScanner::TakeInner(const TagText& tag, std::size_t from, std::size_t to) const {
    Inner inner;
    inner.inPage = lineIsPage_ || tag.InPage(from);
    if (!inner.inPage) {
        inner.text = tag.Cut(from, to, kChangedLabel);
        return inner;
    }
    // A place behind the line's last character, which is the joining blank, lies at the line's end in the page.
    const auto offset = [&](std::size_t place) { return tag.InPage(place) ? tag.PageOffset(place) : lineStart_ + place; };
    inner.from = offset(from);
    inner.to = offset(to);
    return inner;
}

std::string PageScanner::LabelOf(const Inner& inner) {
    const std::string_view raw = inner.inPage ? page_.substr(inner.from, inner.to - inner.from) : std::string_view(inner.text);
    std::string label = inner.inPage && raw.size() > kLongLabel ? labels_.Label(inner.from, inner.to) : CleanLabelText(raw);
    CutTo(label, bounds::kLabelBytes);
    cutBytes_ += label.size();
    return label;
}

void PageScanner::ScanAnchor(std::size_t at) {
    TagText tag = Tag(kAnchor);
    const std::size_t mark = tag.Find(Needle::End, "/a>", true, std::min(at + 6, tag.PageStart()), tag.PageEnd());
    if (mark == kNone) return;
    const std::size_t limit = mark + 3;
    const std::size_t opened = tag.Find(Needle::Close, ">", false, at, limit) + 1;
    const std::size_t closed = tag.Find(Needle::Anchor, "</a>", true, opened, limit);
    if (closed != kNone) anchorInner_ = TakeInner(tag, opened, closed);
    if (IsFiltered(tag, at, opened)) return;
    const std::size_t name = tag.Find(Needle::Name, "href", true, at, opened);
    if (name == kNone) return;
    const std::size_t quote = tag.Find(Needle::OpenQuote, "\"", false, name, opened);
    if (quote == kNone) return;
    std::size_t end = tag.Find(Needle::CloseQuote, "\"", false, tag.Next(tag.Next(quote)), opened);
    if (end == kNone) end = opened - 1;
    std::string address = CleanLinkAddress(Trim(CutAddress(tag, tag.Next(quote), end)));
    std::string label = LabelOf(anchorInner_);
    if (label.empty()) {
        const bool here = closed != kNone && anchorInner_.inPage;
        const std::string raw =
            here ? std::string()
                 : Lower(anchorInner_.inPage ? page_.substr(anchorInner_.from, anchorInner_.to - anchorInner_.from)
                                             : std::string_view(anchorInner_.text));
        const bool isMap = here ? tag.Find(Needle::IsMap, "ismap", true, opened, closed) != kNone : Contains(raw, "ismap");
        const bool image = here ? tag.Find(Needle::Image, "<img", true, opened, closed) != kNone : Contains(raw, "<img");
        label = EmptyLabel(isMap, image);
    }
    AddLink(kAnchor, std::move(address), std::move(label));
}

void PageScanner::ScanOption(std::size_t at) {
    TagText tag = Tag(kOption);
    const std::size_t mark = tag.Find(Needle::End, "<", false, at + 1, tag.PageEnd());
    if (mark == kNone || IsFiltered(tag, at, mark + 1)) return;
    const std::size_t name = tag.Find(Needle::Name, "value", true, at, mark + 1);
    if (name == kNone) return;
    std::size_t start = tag.Find(Needle::Http, "http:", false, name, mark + 1);
    if (start == kNone) start = tag.Find(Needle::Ftp, "ftp:", false, name, mark + 1);
    if (start == kNone) return;
    const std::size_t close = tag.Find(Needle::Close, ">", false, start + 5, mark + 1);
    std::string address = CutAddress(tag, start, close == kNone ? mark : close);
    if (close != kNone) {
        // The character in front of the ">", which is the closing quote, falls away.
        if (!address.empty()) address.pop_back();
        const std::string inner = tag.Cut(close + 1, mark, kChangedLabel);
        optionLabel_ = std::string(FitBytes(CleanLabelText(inner), bounds::kLabelBytes));
        const std::string raw = Lower(inner);
        if (optionLabel_.empty()) optionLabel_ = EmptyLabel(Contains(raw, "ismap"), Contains(raw, "<img"));
    }
    AddLink(kOption, CleanLinkAddress(Trim(address)), optionLabel_);
}

void PageScanner::ScanMeta(Kind kind, const char* attribute, std::size_t at) {
    TagText tag = Tag(kind);
    const std::size_t mark = tag.Find(Needle::End, ">", false, at + 1, tag.PageEnd());
    const std::size_t limit = mark == kNone ? tag.PageEnd() : mark + 1;
    const std::size_t name = tag.Find(Needle::Name, attribute, true, at, limit);
    if (name == kNone) return;
    const std::size_t equals = tag.Find(Needle::Equals, "=", false, name, limit);
    if (equals == kNone) return;
    const std::size_t blank = tag.FindBlank(tag.Next(tag.Next(equals)), limit);
    std::string address = CleanLinkAddress(Trim(CutAddress(tag, tag.Next(equals), blank == kNone ? limit : blank)));
    if (EndsWith(address, ";")) address.pop_back();
    soundSeen_ = true;
    AddLink(kind, std::move(address), LabelOfKind(kind));
}

void PageScanner::ScanQuoted(Kind kind, std::size_t at) {
    TagText tag = Tag(kind);
    const bool general = kind >= kBody;
    const std::size_t mark =
        tag.Find(Needle::End, ">", false, std::min(at + (kind == kImage ? 4 : 1), tag.PageStart()), tag.PageEnd());
    if (mark == kNone && !general) return;
    const std::size_t limit = mark == kNone ? tag.PageEnd() : mark + 1;
    // Of an image's tag that runs over lines the part on its first line isn't kept.
    const std::size_t from = kind == kImage && tag.InPage(mark) ? tag.PageStart() : at;
    if (kind == kArea && IsFiltered(tag, from, limit)) return;
    const std::size_t name = tag.Find(Needle::Name, AttributeOf(kind), true, from, limit);
    if (name == kNone) return;
    const std::size_t quote = tag.Find(Needle::OpenQuote, "\"", false, name, limit);
    if (quote == kNone) return;
    std::size_t end = tag.Find(Needle::CloseQuote, "\"", false, tag.Next(tag.Next(quote)), limit);
    if (end == kNone) end = kind == kImage ? mark : limit;
    const std::string value = CutAddress(tag, tag.Next(quote), end);
    if (general) soundSeen_ = true;
    AddLink(kind, CleanLinkAddress(kind == kArea ? std::string_view(value) : Trim(value)), LabelOfKind(kind));
}

void PageScanner::AddLink(Kind kind, std::string address, std::string label) {
    std::string path;
    if (settings_.resolveLinks) ResolveLinkAddress(base_, address, path);
    if (settings_.ignoreLinkPathList != nullptr && IsIgnoredLinkPath(address, *settings_.ignoreLinkPathList)) return;
    const bool script = StartsWith(address, "javascript:");
    const bool local = kind == kAnchor || kind == kOption || kind == kFrame || kind == kArea;
    const bool untouched = script && kind == kAnchor;
    const auto hash = address.find('#');
    if (!untouched && local && hash != std::string::npos) {
        label = (kind == kFrame ? "[Frame - Local: " : "[Local: ") + address.substr(hash) + "]";
        address.resize(hash);
    }
    if (!untouched && kind != kImage) CompleteServerAddress(address);
    if (script && kind == kAnchor) label = "[Script URL]";
    if (script && kind == kImage) label = "[Script Image]";
    if (script && kind == kArea) label = "[Script Image Map]";
    if (kind == kOption) label = script ? "[Script Option]" : "[Menu] " + label;
    if (kind == kOption) label = std::string(Trim(label));
    CutTo(label, bounds::kLabelBytes);
    CutTo(address, bounds::kAddressBytes);
    CutTo(path, bounds::kAddressBytes);
    links_.Add(std::move(label), std::move(address), {}, std::move(path));
}

}  // namespace qv
