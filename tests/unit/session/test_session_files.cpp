#include "session/session_files.h"

#include <gtest/gtest.h>

#include "session/link_file_composer.h"

namespace qv {
namespace {

LinkFlag Flagged(char mark, std::string_view status) {
    LinkFlag flag;
    flag.Mark = mark;
    flag.SetStatus(status);
    return flag;
}

LinkTable TwoLinks() {
    LinkTable links;
    links.Add(" First ", "http://h/a.htm", Flagged('X', ""), "");
    links.Add("[Image]", " http://h/p.gif", Flagged(' ', "OK *"), "\\w\\p.gif");
    return links;
}

constexpr const char* kTwoLinks =
    "First\r\nhttp://h/a.htm\r\nX\r\n\r\n\r\n[Image]\r\nhttp://h/p.gif\r\n\r\nOK *\r\n\\w\\p.gif\r\n";

TEST(LinksFile, HoldsFiveTrimmedLinesALink) { EXPECT_EQ(ComposeLinks(TwoLinks()), kTwoLinks); }

TEST(LinksFile, ReadsWhatItWrote) {
    LinkTable links;
    links.Add("old", "old", {}, "");
    ParseLinks(kTwoLinks, links);
    ASSERT_EQ(links.LinkCount, 2);
    ASSERT_EQ(links.LinkTexts.size(), 3U);
    EXPECT_EQ(links.LinkTexts[1], "First");
    EXPECT_TRUE(links.LinkFlags[1].Marked());
    EXPECT_EQ(links.LinkFlags[1].Status, "      ");
    EXPECT_EQ(links.LinkFlags[2].Status, "OK *  ");
    EXPECT_FALSE(links.LinkFlags[2].Marked());
    EXPECT_EQ(links.LinkPaths[2], "\\w\\p.gif");
}

TEST(LinksFile, GivesWhatACutFileHolds) {
    const std::string whole = kTwoLinks;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        LinkTable links;
        ParseLinks(std::string_view(whole).substr(0, length), links);
        EXPECT_EQ(links.LinkCount, length == 0 ? 0 : length <= 30 ? 1 : 2) << length;
        EXPECT_EQ(links.LinkUrls.size(), static_cast<std::size_t>(links.LinkCount) + 1) << length;
        for (const auto& flag : links.LinkFlags) EXPECT_EQ(flag.Status.size(), 6U) << length;
    }
}

TEST(LinksFile, CutsAStatusToSixCharacters) {
    LinkTable links;
    ParseLinks("t\r\nu\r\nY\r\ntoo long a status\r\np\r\n", links);
    EXPECT_EQ(links.LinkFlags[1].Status, "too lo");
    EXPECT_FALSE(links.LinkFlags[1].Marked());
}

TEST(LinksFile, LinksBeyondAMillionAreLeftOut) {
    std::string file;
    for (int link = 0; link < 1000001; ++link) file += "t\r\nu\r\nX\r\n\r\n\r\n";
    LinkTable links;
    ParseLinks(file, links);
    EXPECT_EQ(links.LinkCount, 1000000);
}

TEST(LinksFile, IsTheSameWhenItIsWrittenAgain) {
    for (const std::string& bytes : {std::string("\r\0\xFF\xFF\xFF \0tt\xFF\x8B\n\x8DX\n\xE3\xA7\x97\x01t=thh=\n", 26),
                                     std::string("t\r\nu\r\nX\r\n\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC\r\np\r\n")}) {
        LinkTable links;
        ParseLinks(bytes, links);
        const std::string once = ComposeLinks(links);
        ParseLinks(once, links);
        EXPECT_EQ(ComposeLinks(links), once);
        for (const auto& flag : links.LinkFlags) EXPECT_EQ(flag.Status.size(), 6U);
    }
}

TEST(LinkFileComposerTest, ComposesWhatTheWholeTableGives) {
    LinkTable links;
    for (int i = 0; i < 1000; ++i) links.Add("text " + std::to_string(i), "http://h/" + std::to_string(i), Flagged('X', ""), "");
    LinkFileComposer composer;
    EXPECT_EQ(composer.Compose(links), ComposeLinks(links));
    for (const std::size_t i : {1U, 128U, 129U, 500U, 1000U}) {
        links.LinkFlags[i].Mark = ' ';
        links.LinkFlags[i].SetStatus("404");
        EXPECT_EQ(composer.Compose(links), ComposeLinks(links)) << i;
    }
    links.Add("more", "u", Flagged(' ', "OK"), "p");
    EXPECT_EQ(composer.Compose(links), ComposeLinks(links));
    links.LinkTexts[7] = "another";
    links.Touch();
    EXPECT_EQ(composer.Compose(links), ComposeLinks(links));
    links.Clear();
    EXPECT_EQ(composer.Compose(links), "");
}

TEST(HeaderFile, HoldsEightLines) {
    DocumentHeader header{"http://h/", "a.htm", "\\w\\", "http://h/a.htm", "\\w\\a.htm", 3};
    EXPECT_EQ(ComposeHeader(WebDocumentHeader(header)),
              "http://h/\r\na.htm\r\n\\w\\\r\nhttp://h/a.htm\r\n\\w\\a.htm\r\n\\w\\\r\n\r\n3\r\n");
}

TEST(HeaderFile, KeepsAPathThatEndsInABackslash) {
    DocumentHeader header;
    header.DocumentPath = "\\w\\x\\";
    EXPECT_EQ(WebDocumentHeader(header)[5], "\\w\\x\\");
    header.DocumentPath.clear();
    EXPECT_EQ(WebDocumentHeader(header)[5], "");
}

TEST(HeaderFile, ReadsMissingLinesAsEmpty) {
    const HeaderLines lines = ParseHeader("one\r\ntwo");
    EXPECT_EQ(lines[0], "one");
    EXPECT_EQ(lines[1], "two");
    EXPECT_EQ(lines[7], "");
}

TEST(SessionFile, WritesNumbersInPrintStyle) {
    EXPECT_EQ(ComposeSession({{"http://h/a", 42}, {"http://h/b", 7}}), "http://h/a\r\n 42 \r\nhttp://h/b\r\n 7 \r\n");
}

TEST(SessionFile, ReadsNumbersWithAndWithoutBlanks) {
    const auto documents = ParseSession("a\r\n 12 \r\nb\r\n12\r\nc\r\nx\r\nd");
    const std::vector<DocumentEntry> expected = {{"a", 12}, {"b", 12}, {"c", 0}, {"d", 0}};
    EXPECT_EQ(documents, expected);
}

TEST(GoodLinksFile, KeepsTheOrder) {
    GoodLinkList good;
    good.Add("http://b/");
    good.Add("http://a/");
    EXPECT_EQ(ComposeGoodLinks(good), "http://b/\r\nhttp://a/\r\n");
    GoodLinkList read;
    ParseGoodLinks(ComposeGoodLinks(good), read);
    EXPECT_EQ(read.GoodLinkCount(), 2);
    EXPECT_TRUE(read.Contains("http://a/"));
    EXPECT_FALSE(read.Contains("http://A/"));
    EXPECT_EQ(read.GoodLinks().front(), "http://b/");
}

TEST(GoodLinkListTest, AnswersAfterManyAdditions) {
    GoodLinkList good;
    for (int i = 0; i < 1000; ++i) good.Add("u" + std::to_string(i));
    EXPECT_TRUE(good.Contains("u0"));
    EXPECT_TRUE(good.Contains("u999"));
    good.Clear();
    EXPECT_FALSE(good.Contains("u0"));
    EXPECT_EQ(good.GoodLinkCount(), 0);
}

TEST(CounterFile, CountsFromOne) {
    EXPECT_EQ(NextCounter(""), std::make_pair(1, std::string("00001")));
    EXPECT_EQ(NextCounter("00041"), std::make_pair(42, std::string("00042")));
}

TEST(CounterFile, WritesSixDigitsPast99999AndReadsFive) {
    EXPECT_EQ(NextCounter("99999"), std::make_pair(100000, std::string("100000")));
    EXPECT_EQ(NextCounter("100000"), std::make_pair(10001, std::string("100010")));
}

TEST(CounterFile, LeavesWhatStandsBehindTheNumber) { EXPECT_EQ(NextCounter("00001tail").second, "00002tail"); }

TEST(CounterFile, TakesNonsenseAsZero) { EXPECT_EQ(NextCounter("x").first, 1); }

}  // namespace
}  // namespace qv
