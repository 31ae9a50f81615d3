// Finds the links of a page, line by line and kind by kind, in one pass over its bytes.
//
// A line is scanned for each kind of tag in turn, so the links of one line come grouped by kind. A tag that isn't closed on its
// line takes the lines behind it along, which are nevertheless scanned as lines of their own. The tag's text is never put
// together (TagText), and what is searched in it is searched by finders that go over the page once, however many tags share
// the same end: the work stays linear in the size of the page.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "extract/label_stream.h"
#include "extract/link_resolver.h"
#include "extract/tag_text.h"
#include "session/flags.h"
#include "session/link_table.h"

namespace qv {

struct ScanSettings {
    bool includeImages = true;
    Flag ignoreJavaScript = 1;  // other than 0: script on one line is removed, and script links are left out; only -1 also
                                // leaves out the lines inside a script block that runs over lines
    bool checkFtpLinks = true;
    bool resolveLinks = true;
    const std::vector<std::string>* ignoreLinkPathList = nullptr;  // may be null
};

class PageScanner {
   public:
    // The page, the base and the table outlive the scanner. Links are added to the table.
    PageScanner(std::string_view page, const ScanSettings& settings, const DocumentBase& base, LinkTable& links);

    // Does a bounded piece of the work. False when the page is at its end.
    bool Step();
    std::size_t Position() const { return position_; }  // bytes of the page that are done with, or being worked on

   private:
    enum Kind { kAnchor, kArea, kOption, kFrame, kMetaUrl, kMetaLocation, kImage, kBody, kSound, kEmbed, kApplet, kKinds };

    // What an anchor's label is made of: a stretch of the page, or a text of its own where the line was changed.
    struct Inner {
        std::size_t from = 0, to = 0;
        std::string text;
        bool inPage = false;
    };

    bool FindLine(std::size_t limit);
    bool LooksInteresting(std::size_t at) const;
    void BeginLine(std::size_t inside);
    void FindLineBounds(std::size_t inside);
    void CollectTags();
    void StripScriptBlocks(std::string_view line);
    void ScanSome();
    void ScanTag(Kind kind, std::size_t at);
    TagText Tag(Kind kind);

    void ScanAnchor(std::size_t at);
    void ScanOption(std::size_t at);
    void ScanMeta(Kind kind, const char* attribute, std::size_t at);
    void ScanQuoted(Kind kind, std::size_t at);
    bool IsFiltered(TagText& tag, std::size_t from, std::size_t limit);
    Inner TakeInner(const TagText& tag, std::size_t from, std::size_t to) const;
    std::string LabelOf(const Inner& inner);
    std::string CutAddress(const TagText& tag, std::size_t from, std::size_t to);

    void AddLink(Kind kind, std::string address, std::string label);
    bool Full() const;

    std::string_view page_;
    ScanSettings settings_;
    const DocumentBase& base_;
    LinkTable& links_;
    std::size_t position_ = 0;

    // The line at hand.
    bool inLine_ = false;
    bool lineIsPage_ = true;   // the line is a stretch of the page, from lineStart_
    std::string_view line_;    // as it is scanned
    std::string changedLine_;  // its text where script was taken out
    std::size_t lineStart_ = 0;
    std::size_t nextLine_ = 0;
    std::size_t lineNumber_ = 0;
    bool hasScript_ = false;
    bool soundSeenBefore_ = false;                         // asked once a line
    std::array<std::vector<std::uint32_t>, kKinds> tags_;  // where the tags of each kind begin
    int kind_ = 0;
    std::size_t tag_ = 0;

    std::size_t nextFeed_ = 0;  // the first line feed at or behind the place that was asked for last
    TextFinder scriptEnd_;
    std::array<TagFinders, kKinds> finders_;
    LabelStream labels_;
    Flag inScript_ = kClear;
    bool soundSeen_ = false;
    Inner anchorInner_;        // of the last anchor that had one
    std::string optionLabel_;  // of the last option that had one
    std::size_t cutBytes_ = 0;
    std::size_t mostCutBytes_;
};

}  // namespace qv
