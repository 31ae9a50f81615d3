#include "extract/page_scanner.h"

#include <algorithm>
#include <cstring>

#include "extract/link_text.h"
#include "extract/url_text.h"
#include "platform/bounds.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr std::size_t kBytesPerStep = 256 * 1024;
constexpr int kTagsPerStep = 64;
constexpr std::string_view kScript = "<script";
constexpr std::string_view kScriptEnd = "/script>";

constexpr char Folded(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

// Whether the text at `at` reads `name`, which is in lower case, in any case of its letters.
bool Reads(std::string_view text, std::size_t at, std::string_view name) {
    if (text.size() - at < name.size()) return false;
    for (std::size_t i = 0; i < name.size(); ++i)
        if (Folded(text[at + i]) != name[i]) return false;
    return true;
}

// The first letters of the names that tags of interest have.
constexpr std::array<bool, 256> MakeFirstLetters() {
    std::array<bool, 256> letters{};
    for (const char c : {'a', 'o', 'f', 'm', 'i', 'b', 'e', 's'}) {
        letters[static_cast<unsigned char>(c)] = true;
        letters[static_cast<unsigned char>(c - ('a' - 'A'))] = true;
    }
    return letters;
}
constexpr auto kFirstLetters = MakeFirstLetters();

std::size_t FindByte(std::string_view text, char byte, std::size_t from, std::size_t to) {
    if (from >= to) return to;
    const void* hit = std::memchr(text.data() + from, byte, to - from);
    return hit == nullptr ? to : static_cast<std::size_t>(static_cast<const char*>(hit) - text.data());
}

// Behind the last such byte in [from, to); `from` if there is none.
std::size_t BehindLast(std::string_view text, char byte, std::size_t from, std::size_t to) {
    const auto at = text.substr(from, to - from).rfind(byte);
    return at == std::string_view::npos ? from : from + at + 1;
}

}  // namespace

PageScanner::PageScanner(std::string_view page, const ScanSettings& settings, const DocumentBase& base, LinkTable& links)
    : page_(page),
      settings_(settings),
      base_(base),
      links_(links),
      labels_(page),
      optionLabel_(EmptyLabel(false, false)),
      mostCutBytes_(bounds::kImportedBytes + 4 * page.size()) {}

bool PageScanner::Step() {
    if (!inLine_ && !FindLine(std::min(page_.size(), position_ + kBytesPerStep))) return position_ < page_.size();
    ScanSome();
    if (inLine_) return true;
    position_ = Full() ? page_.size() : nextLine_;
    return position_ < page_.size();
}

bool PageScanner::LooksInteresting(std::size_t at) const {
    if (at + 1 >= page_.size()) return false;
    switch (Folded(page_[at + 1])) {
        case 'a': return true;
        case 'o': return Reads(page_, at, "<option");
        case 'f': return Reads(page_, at, "<frame");
        case 'm': return Reads(page_, at, "<meta");
        case 'i': return settings_.includeImages && Reads(page_, at, "<img");
        case 'b': return settings_.includeImages && (Reads(page_, at, "<body") || Reads(page_, at, "<bgsound"));
        case 'e': return settings_.includeImages && Reads(page_, at, "<embed");
        case 's': return settings_.ignoreJavaScript != 0 && StartsWith(page_.substr(at), kScript);
        default: return false;
    }
}

// Goes on to the next line that holds something to do, at most up to `limit`; whether there is one.
bool PageScanner::FindLine(std::size_t limit) {
    std::size_t scriptEnd = TextFinder::kNone;
    if (inScript_ != 0) scriptEnd = scriptEnd_.Find(page_, kScriptEnd, false, position_, page_.size());
    if (inScript_ != 0 && settings_.ignoreJavaScript == kSet) {
        if (scriptEnd == TextFinder::kNone)
            position_ = page_.size();
        else
            BeginLine(scriptEnd);
        return scriptEnd != TextFinder::kNone;
    }
    const std::size_t stop = std::min(limit, scriptEnd);
    for (std::size_t at = FindByte(page_, '<', position_, stop); at < stop; at = FindByte(page_, '<', at + 1, stop)) {
        if (at + 1 < page_.size() && !kFirstLetters[static_cast<unsigned char>(page_[at + 1])]) continue;
        if (!LooksInteresting(at)) continue;
        BeginLine(at);
        return true;
    }
    if (scriptEnd < limit) {
        BeginLine(scriptEnd);
        return true;
    }
    // The line that the limit cuts stays whole for the next step.
    const std::size_t lineStart =
        limit == page_.size() ? limit
                              : std::max(BehindLast(page_, '\n', position_, limit), BehindLast(page_, '\r', position_, limit));
    position_ = lineStart > position_ ? lineStart : limit;
    return false;
}

void PageScanner::FindLineBounds(std::size_t inside) {
    const std::size_t behindFeed = BehindLast(page_, '\n', position_, inside);
    lineStart_ = std::max(behindFeed, BehindLast(page_, '\r', behindFeed, inside));
    if (nextFeed_ < inside || lineNumber_ == 0) nextFeed_ = FindByte(page_, '\n', inside, page_.size());
    const std::size_t end = FindByte(page_, '\r', inside, nextFeed_);
    line_ = page_.substr(lineStart_, end - lineStart_);
    nextLine_ = end;
    if (nextLine_ < page_.size() && page_[nextLine_] == '\r') ++nextLine_;
    if (nextLine_ < page_.size() && nextLine_ - end < 2 && page_[nextLine_] == '\n') ++nextLine_;
}

void PageScanner::BeginLine(std::size_t inside) {
    FindLineBounds(inside);
    ++lineNumber_;
    inLine_ = true;
    lineIsPage_ = true;
    kind_ = 0;
    tag_ = 0;
    const std::string_view whole = line_;
    if (settings_.ignoreJavaScript != 0) {
        const std::size_t blanks = line_.size() - TrimLeft(line_).size();
        lineStart_ += line_.empty() ? 0 : blanks;
        line_ = Trim(line_);
    }
    CollectTags();
    if (settings_.ignoreJavaScript != 0 && (hasScript_ || inScript_ != 0)) {
        StripScriptBlocks(whole);
        CollectTags();
        if (inScript_ == kSet && settings_.ignoreJavaScript == kSet) kind_ = kKinds;
    }
}

void PageScanner::CollectTags() {
    for (auto& places : tags_) places.clear();
    hasScript_ = false;
    const auto add = [&](Kind kind, std::size_t at) { tags_[kind].push_back(static_cast<std::uint32_t>(at)); };
    for (std::size_t at = FindByte(line_, '<', 0, line_.size()); at < line_.size();
         at = FindByte(line_, '<', at + 1, line_.size())) {
        if (at + 1 == line_.size()) break;
        switch (Folded(line_[at + 1])) {
            case 'a':
                add(kAnchor, at);
                if (Reads(line_, at, "<area")) add(kArea, at);
                if (Reads(line_, at, "<applet")) add(kApplet, at);
                break;
            case 'o':
                if (Reads(line_, at, "<option")) add(kOption, at);
                break;
            case 'f':
                if (Reads(line_, at, "<frame")) add(kFrame, at);
                break;
            case 'm':
                if (!Reads(line_, at, "<meta")) break;
                add(kMetaUrl, at);
                add(kMetaLocation, at);
                break;
            case 'i':
                if (Reads(line_, at, "<img")) add(kImage, at);
                break;
            case 'b':
                if (Reads(line_, at, "<body")) add(kBody, at);
                if (Reads(line_, at, "<bgsound")) add(kSound, at);
                break;
            case 'e':
                if (Reads(line_, at, "<embed")) add(kEmbed, at);
                break;
            case 's': hasScript_ = hasScript_ || StartsWith(line_.substr(at), kScript); break;
            default: break;
        }
    }
}

// Takes script out of the line, and notes whether a block goes on behind it.
void PageScanner::StripScriptBlocks(std::string_view line) {
    std::string text;
    if (inScript_ != 0) {
        const auto end = line.find(kScriptEnd);
        if (end == std::string_view::npos) return;
        // What remains begins at the ">" and lacks the last character of the line.
        const std::size_t from = end + kScriptEnd.size() - 1;
        line = line.substr(from, line.size() - from - 1);
        inScript_ = kClear;
    }
    std::size_t from = 0;
    std::size_t search = 0;
    for (auto start = line.find(kScript, search); start != std::string_view::npos; start = line.find(kScript, search)) {
        text.append(line, from, start - from);
        const auto end = line.find(kScriptEnd, start + 1);
        if (end == std::string_view::npos) {
            inScript_ = kSet;
            from = line.size();
            break;
        }
        inScript_ = kClear;
        from = end + kScriptEnd.size();
        search = std::min(from + 1, line.size());  // a block that follows at once isn't seen
    }
    text.append(line.substr(from));
    changedLine_ = std::string(Trim(text));
    line_ = changedLine_;
    lineIsPage_ = false;
}

void PageScanner::ScanSome() {
    int left = kTagsPerStep;
    for (; kind_ < kKinds && left > 0; ++kind_, tag_ = 0) {
        const auto kind = static_cast<Kind>(kind_);
        if (kind >= kImage && !settings_.includeImages) continue;
        if (kind == kSound && tag_ == 0) soundSeenBefore_ = soundSeen_;
        if (kind == kSound && soundSeenBefore_) continue;
        const auto& places = tags_[kind];
        for (; tag_ < places.size() && left > 0; ++tag_, --left) ScanTag(kind, places[tag_]);
        if (tag_ < places.size()) return;
    }
    if (kind_ >= kKinds || Full()) inLine_ = false;
}

void PageScanner::ScanTag(Kind kind, std::size_t at) {
    if (Full()) return;
    switch (kind) {
        case kAnchor: ScanAnchor(at); break;
        case kOption: ScanOption(at); break;
        case kMetaUrl: ScanMeta(kind, "url", at); break;
        case kMetaLocation: ScanMeta(kind, "location", at); break;
        default: ScanQuoted(kind, at); break;
    }
}

TagText PageScanner::Tag(Kind kind) {
    TagFinders& finders = finders_[kind];
    if (finders.lineNumber != lineNumber_) {
        finders.lineNumber = lineNumber_;
        for (auto& finder : finders.line) finder.Reset();
    }
    return TagText(line_, page_, nextLine_, finders);
}

bool PageScanner::Full() const { return links_.LinkCount >= bounds::kLinksPerDocument || cutBytes_ > mostCutBytes_; }

}  // namespace qv
