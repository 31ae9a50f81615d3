#include <gtest/gtest.h>

#include "bookmarks/bookmark_file.h"

namespace qv {
namespace {

std::string Entry(const std::string& url, const std::string& title, const std::string& subtitle = " 0",
                  const std::string& kept = "third\r\n 1\r\n 2.5\r\n-3") {
    return url + "\r\n" + title + "\r\n" + kept + "\r\n" + subtitle + "\r\n\r\n\r\n\r\n";
}

std::string Group(int number, const std::string& title, const std::vector<std::string>& entries) {
    std::string bytes = "[Group " + std::to_string(number) + "]\r\n" + title + "\r\n " + std::to_string(entries.size()) + "\r\n";
    for (const auto& entry : entries) bytes += entry;
    return bytes;
}

std::string Bar(const std::vector<std::string>& first, const std::vector<std::string>& second = {}) {
    std::string bytes = Group(1, "News", first) + Group(2, "More", second);
    for (int number = 3; number <= 12; ++number) bytes += Group(number, "Empty", {});
    return bytes;
}

TEST(BookmarkFile, WhatNobodyTouchesComesBackByteForByte) {
    const std::string bytes = Bar({Entry("\"http://h/a\"", "A"), Entry("\"\"", "Heading", "-1"), Entry("\"http://h/b\"", "B")},
                                  {Entry("\"http://h/c\"", "C", " 0", "\r\n 36526.0625\r\n 0\r\n .5")});
    EXPECT_EQ(ComposeBookmarks(ParseBookmarks(bytes)), bytes);
    BookmarkGroups groups = ParseBookmarks(bytes);
    LinkTable links;
    EXPECT_EQ(FillLinks(groups, links), 3);
    ApplyRows(links, groups);
    EXPECT_EQ(ComposeBookmarks(groups), bytes);
}

TEST(BookmarkFile, RowsAreInTheOrderOfTheFile) {
    LinkTable links;
    FillLinks(ParseBookmarks(Bar({Entry("\"http://h/a\"", "  A "), Entry("x", " Heading ", " 1")}, {Entry(" http://h/c", "C")})), links);
    ASSERT_EQ(links.LinkCount, 15);
    const std::vector<std::array<std::string, 2>> rows = {{"News", "GROUP: 2 Bookmarks"}, {"A", "http://h/a"}, {"Heading", "SUBTITLE"},
                                                          {"More", "GROUP: 1 Bookmarks"}, {"C", "http://h/c"}};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(links.LinkTexts[i + 1], rows[i][0]);
        EXPECT_EQ(links.LinkUrls[i + 1], rows[i][1]);
        EXPECT_EQ(links.LinkFlags[i + 1].Marked(), i == 1 || i == 4) << i;
        EXPECT_EQ(links.LinkFlags[i + 1].TrimmedStatus(), "");
    }
}

TEST(BookmarkFile, AnAddressWithAHeadingsWordIsNotMarked) {
    LinkTable links;
    EXPECT_EQ(FillLinks(ParseBookmarks(Bar({Entry("\"http://h/subtitle\"", "A"), Entry("\"http://h/group:1\"", "B")})), links), 2);
    EXPECT_FALSE(links.LinkFlags[2].Marked());
    EXPECT_FALSE(links.LinkFlags[3].Marked());
}

TEST(BookmarkFile, RowsGoBackIntoTheFile) {
    BookmarkGroups groups = ParseBookmarks(Bar({Entry("\"http://h/a\"", "A"), Entry("http://h/plain", "P"), Entry("\"h\"", "H", "-1")},
                                               {Entry("\"http://h/c\"", "C")}));
    LinkTable links;
    FillLinks(groups, links);
    links.LinkUrls[2].insert(0, kDeleteMark);
    links.LinkTexts[3] = " New title ";
    links.LinkTexts[4] = "a heading keeps its own";
    links.LinkUrls[6].insert(0, kDeleteMark);
    ApplyRows(links, groups);
    EXPECT_EQ(ComposeBookmarks(groups), Bar({Entry("\"http://h/plain\"", "New title"), Entry("\"h\"", "H", "-1")}, {}));
}

TEST(BookmarkFile, KeptStringsAreTrimmed) {
    const std::string composed = ComposeBookmarks(ParseBookmarks(Bar({Entry("  \"u\" ", "  t ", " 0", "  third \r\n1\r\n+2\r\n007.50")})));
    EXPECT_EQ(composed, Bar({Entry("\"u\"", "t", " 0", "third\r\n 1\r\n 2\r\n 7.5")}));
}

TEST(BookmarkFile, ShortAndDamagedFilesReadAsEmptyFields) {
    BookmarkGroups groups = ParseBookmarks("[Group 1]\r\nNews\r\n 2\r\n\"http://h/a\"\r\nA\r\n");
    ASSERT_EQ(groups[0].entries.size(), 2u);
    EXPECT_EQ(groups[0].entries[1].Url, "");
    EXPECT_EQ(groups[11].title, "");
    LinkTable links;
    EXPECT_EQ(FillLinks(groups, links), 2);
    EXPECT_EQ(links.LinkCount, 14);
    groups = ParseBookmarks("x\r\nt\r\n 32000\r\n");
    EXPECT_EQ(groups[0].entries.size(), 100u);
    for (const char* count : {"-5", "many", "", "99999"}) EXPECT_TRUE(ParseBookmarks(std::string("x\r\nt\r\n") + count + "\r\n")[0].entries.empty());
    EXPECT_EQ(ParseBookmarks("")[3].count, 0);
}

TEST(BookmarkFile, EntriesBeyondAHundredAreReadPast) {
    const std::vector<std::string> many(103, Entry("\"u\"", "t"));
    BookmarkGroups groups = ParseBookmarks(Bar(many, {Entry("\"v\"", "second")}));
    EXPECT_EQ(groups[0].entries.size(), 100u);
    EXPECT_EQ(groups[1].entries.at(0).Title, "second");
    LinkTable links;
    EXPECT_EQ(FillLinks(groups, links), 101);
    EXPECT_EQ(links.LinkUrls[1], "GROUP: 103 Bookmarks");
    ApplyRows(links, groups);
    EXPECT_EQ(groups[0].count, 100);
}

TEST(BookmarkFile, NumbersAreInPrintForm) {
    EXPECT_EQ(FloatPrintForm(0), " 0");
    EXPECT_EQ(FloatPrintForm(-0.0), " 0");
    EXPECT_EQ(FloatPrintForm(12), " 12");
    EXPECT_EQ(FloatPrintForm(-1), "-1");
    EXPECT_EQ(FloatPrintForm(0.5), " .5");
    EXPECT_EQ(FloatPrintForm(-0.25), "-.25");
    EXPECT_EQ(FloatPrintForm(36526.123456789), " 36526.123456789");
    EXPECT_EQ(FloatPrintForm(1e20), " 1E+20");
    EXPECT_EQ(FloatPrintForm(123456789012345), " 123456789012345");
}

TEST(BookmarkFile, NumbersOfAnySizeComeBackAsTheyWere) {
    const auto after = [](const std::string& number) {
        const std::string head = "[Group 1]\r\nTitle\r\n 1\r\nhttp://h/\r\nA\r\n\r\n";
        return FloatPrintForm(ParseBookmarks(head + number + "\r\n")[0].entries.at(0).numbers[0]);
    };
    for (const char* number : {" 1E+20", "-5.55555555555555E+65", " 1.5E-09", " 36526.1234567891", "-.25", " 0", " 39876.0000115741"})
        EXPECT_EQ(after(number), number);
    EXPECT_EQ(after("+7 and text"), " 7");
    for (const char* none : {"", "text", "-", "inf", "-nan", "1E+999"}) EXPECT_EQ(after(none), " 0") << none;
}

}  // namespace
}  // namespace qv
