#include "bookmarks/bookmark_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <charconv>

#include "text/basic_text.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr const char* kSubtitleRow = "SUBTITLE";

std::string Trimmed(std::string_view text) { return std::string(Trim(text)); }

// The number that a line begins with, in any form that FloatPrintForm writes; 0 when there is none.
double ReadFloat(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t+"), line.size()));
    const std::string_view digits = line.substr(line.starts_with('-') ? 1 : 0);
    if (digits.empty() || (digits[0] != '.' && (digits[0] < '0' || digits[0] > '9'))) return 0;
    double value = 0;
    const auto [rest, error] = std::from_chars(line.data(), line.data() + line.size(), value);
    return error == std::errc() ? value : 0;
}

BookmarkEntry ReadEntry(LineReader& reader) {
    BookmarkEntry entry;
    entry.Url = std::string(reader.Next());
    entry.Title = std::string(reader.Next());
    entry.third = std::string(reader.Next());
    for (double& number : entry.numbers) number = ReadFloat(reader.Next());
    entry.Subtitle = LeadingInt16(reader.Next()).value_or(0);
    for (int dropped = 0; dropped < 3; ++dropped) reader.Next();
    return entry;
}

// The address without the quotes that it has at its ends.
std::string Unquoted(std::string url) {
    if (!url.empty() && url.front() == '"') url.erase(0, 1);
    if (!url.empty() && url.back() == '"') url.pop_back();
    return Trimmed(url);
}

LinkFlag Marked(bool marked) {
    LinkFlag flag;
    flag.Mark = marked ? 'X' : ' ';
    return flag;
}

bool HoldsHeadingWord(const std::string& url) {
    const std::string lower = Lower(url);
    return Contains(lower, "subtitle") || Contains(lower, "group:");
}

std::string GroupRow(std::int64_t count) { return "GROUP: " + std::to_string(count) + " Bookmarks"; }

}  // namespace

std::string FloatPrintForm(double value) {
    std::string text = fmt::format("{:.15g}", value == 0 ? 0.0 : value);  // no minus zero
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return static_cast<char>(std::toupper(c)); });
    const bool negative = text.front() == '-';
    if (negative) text.erase(0, 1);
    if (text.size() > 1 && text[0] == '0' && text[1] == '.') text.erase(0, 1);
    return (negative ? "-" : " ") + text;
}

BookmarkGroups ParseBookmarks(std::string_view bytes) {
    BookmarkGroups groups;
    LineReader reader(bytes);
    for (BookmarkGroup& group : groups) {
        reader.Next();  // the head
        group.title = std::string(reader.Next());
        group.count = LeadingInt16(reader.Next()).value_or(0);
        for (std::int32_t read = 0; read < group.count; ++read) {
            if (read < kBookmarksPerGroup)
                group.entries.push_back(ReadEntry(reader));
            else if (reader.AtEnd())
                break;
            else
                ReadEntry(reader);
        }
    }
    return groups;
}

std::string ComposeBookmarks(const BookmarkGroups& groups) {
    LineWriter writer;
    long long number = 0;
    for (const BookmarkGroup& group : groups) {
        writer.Line("[Group" + PrintForm(++number) + "]").Line(Trim(group.title)).Line(PrintForm(group.count));
        for (const BookmarkEntry& entry : group.entries) {
            writer.Line(Trim(entry.Url)).Line(Trim(entry.Title)).Line(Trim(entry.third));
            for (const double value : entry.numbers) writer.Line(FloatPrintForm(value));
            writer.Line(PrintForm(entry.Subtitle)).Line("").Line("").Line("");
        }
    }
    return writer.Bytes();
}

std::int32_t FillLinks(const BookmarkGroups& groups, LinkTable& links) {
    links.Clear();
    std::int32_t bookmarks = 0;
    for (const BookmarkGroup& group : groups) {
        links.Add(group.title, GroupRow(group.count), Marked(false), "");
        for (const BookmarkEntry& entry : group.entries) {
            const bool heading = entry.Subtitle != 0;
            std::string url = heading ? kSubtitleRow : Unquoted(entry.Url);
            bookmarks += heading ? 0 : 1;
            const LinkFlag flag = Marked(!HoldsHeadingWord(url));
            links.Add(Trimmed(entry.Title), std::move(url), flag, "");
        }
    }
    return bookmarks;
}

// The rows are gone through in step with the file: one for each group, one for each entry.
void ApplyRows(const LinkTable& links, BookmarkGroups& groups) {
    std::int32_t row = 0;
    for (BookmarkGroup& group : groups) {
        ++row;
        std::vector<BookmarkEntry> kept;
        for (BookmarkEntry& entry : group.entries) {
            ++row;
            if (links.Has(row)) {
                const auto i = static_cast<std::size_t>(row);
                if (Contains(links.LinkUrls[i], Trim(kDeleteMark))) continue;
                if (entry.Subtitle == 0) {
                    entry.Url = "\"" + Trimmed(links.LinkUrls[i]) + "\"";
                    entry.Title = Trimmed(links.LinkTexts[i]);
                }
            }
            kept.push_back(std::move(entry));
        }
        group.entries = std::move(kept);
        group.count = static_cast<std::int32_t>(group.entries.size());
    }
}

}  // namespace qv
