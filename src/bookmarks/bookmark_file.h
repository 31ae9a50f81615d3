// bookm<n>.zdt, the companion's file of one bookmark bar: twelve groups of entries. Pure: bytes in, values out, and back.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "session/link_table.h"

namespace qv {

inline constexpr int kBookmarkGroups = 12;
inline constexpr int kBookmarksPerGroup = 100;  // entries beyond are read past and make no row
inline constexpr const char* kDeleteMark = "TO DELETE: ";

struct BookmarkEntry {
    std::string Url;  // as the line stands in the file
    std::string Title;
    std::string third;  // this and the numbers mean something to the companion alone
    std::array<double, 3> numbers{};
    std::int16_t Subtitle = 0;  // not 0: a sub-heading, no link
};

struct BookmarkGroup {
    std::string title;
    std::int32_t count = 0;  // as the file tells it
    std::vector<BookmarkEntry> entries;
};
using BookmarkGroups = std::array<BookmarkGroup, kBookmarkGroups>;

// Lines that a short file doesn't have are empty.
BookmarkGroups ParseBookmarks(std::string_view bytes);
// Strings are trimmed, numbers in print form, the lines that nobody reads empty.
std::string ComposeBookmarks(const BookmarkGroups& groups);

// The rows of a bar: a heading for each group, and its entries. Gives how many of them are bookmarks.
std::int32_t FillLinks(const BookmarkGroups& groups, LinkTable& links);

// Puts what the rows have become into the groups that the rows were made of: entries whose row is marked for deletion go, addresses
// and titles of bookmarks are those of their rows. The counts become the entries that are left.
void ApplyRows(const LinkTable& links, BookmarkGroups& groups);

// A number as the companion writes it: up to 15 digits, a leading blank when it isn't negative, no 0 in front of the point.
std::string FloatPrintForm(double value);

}  // namespace qv
