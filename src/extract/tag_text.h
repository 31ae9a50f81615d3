// The text of a tag that may run over lines: what the tag's line holds, and then the lines behind it, each joined by a blank.
// It is never put together; places in it are numbers that grow, and pieces are cut out when something comes of them.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "extract/text_finder.h"

namespace qv {

// What is searched for in tags. Each kind of tag and each of these has a finder of its own, so that its queries move on.
enum class Needle {
    End,
    Close,
    Anchor,
    MailTo,
    News,
    JavaScript,
    Ftp,
    Name,
    OpenQuote,
    CloseQuote,
    Equals,
    Blank,
    LineEnd,
    OldLineEnd,
    Http,
    IsMap,
    Image,
    Count
};

// Finders for one kind of tag: for the line at hand, and for the page behind it. Searches that go on from the line into the page
// all start at the next line, and have finders apart from those that start somewhere in the page.
struct TagFinders {
    using Row = std::array<TextFinder, static_cast<std::size_t>(Needle::Count)>;
    Row line;
    Row fromLine;
    Row inPage;
    std::size_t lineNumber = 0;  // the line that the first row belongs to
};

// Places: from 0 to the line's length in the line; the number behind it is the joining blank; behind that the page's bytes from
// the next line on, one by one. A line end there counts as one blank when it is cut out, and as one step of Next.
class TagText {
   public:
    static constexpr std::size_t kNone = TextFinder::kNone;

    TagText(std::string_view line, std::string_view page, std::size_t nextLine, TagFinders& finders)
        : line_(line), page_(page), nextLine_(nextLine), finders_(finders) {}

    std::size_t LineSize() const { return line_.size(); }
    std::size_t PageEnd() const { return line_.size() + 1 + (page_.size() - nextLine_); }  // behind the last byte of the page
    std::size_t PageStart() const { return line_.size() + 1; }

    // The first match that starts at `from` or behind it and ends at `limit` at the latest.
    std::size_t Find(Needle role, std::string_view needle, bool foldCase, std::size_t from, std::size_t limit);
    std::size_t FindBlank(std::size_t from, std::size_t limit);

    char At(std::size_t place) const;           // a blank for a line end
    std::size_t Next(std::size_t place) const;  // one character on
    // The characters from one place up to another, at most `most` of them.
    std::string Cut(std::size_t from, std::size_t to, std::size_t most) const;

    bool InPage(std::size_t place) const { return place >= PageStart(); }
    std::size_t PageOffset(std::size_t place) const { return place - PageStart() + nextLine_; }

   private:
    std::string_view line_;
    std::string_view page_;
    std::size_t nextLine_;
    TagFinders& finders_;
};

}  // namespace qv
