// The forms against files that were written by hand: expected/<rows>_<form>.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "reports/report_writers.h"

namespace qv {
namespace {

constexpr const char* kSite = "http://www.example.test/site/";

struct Row {
    std::string status, text, url;
};

LinkTable Table(const std::vector<Row>& rows) {
    LinkTable links;
    for (const auto& row : rows) {
        LinkFlag flag;
        flag.SetStatus(row.status);
        links.Add(row.text, row.url, flag, "");
    }
    return links;
}

struct Page {
    std::string name;
    LinkTable links;
};

std::vector<Page> Pages() {
    const std::string site = kSite;
    const std::string umlauts = "ÄÖÜäöüßÄÖÜäöüßÄÖÜäöüßÄÖÜäöüß";
    return {{"index.htm", Table({{"OK", "Home page", site},
                                 {"404", "Broken link", site + "broken.htm"},
                                 {"NA/SE", "Secure shop", "https://shop.example.test/"},
                                 {"", "Never checked", site + "new.htm"},
                                 {"OK *", "[Image]", site + "logo.gif"},
                                 {"Ok", "Other case", site + "case.htm"},
                                 {"", "", site + "silent.htm"},
                                 {"404", "", site + "nameless.htm"},
                                 {"OK", "abcdefghijklmnopqrstuvwxyz012", "http://h/29"},
                                 {"404", "abcdefghijklmnopqrstuvwxyz01", "http://h/28"},
                                 {"TMOUT", "abcdefghijklmnopqrstuvwxyz012", "http://h/29"},
                                 {"404", "abcdefghijklmnopqrstuvwxyz0123", "http://h/30"},
                                 {"500", "say \"hi\", <b>you</b>", "http://h/?a=1&b=\"2\",3"},
                                 {"404", "  Padded text ", "  http://pad.example.test/ "},
                                 {"404", "Übersicht — é", "http://h/ü"},
                                 {"404", umlauts, "http://h/u"},
                                 {"NA/RE", "[Local: \\site\\a.htm]", "http://h/local"},
                                 {"403", umlauts + "Ä", "http://h/v"}})},
            {"good.htm", Table({{"OK", "Back", site + "index.htm"}, {"NA/SC", "[Script URL]", "javascript:go()"}})},
            {"bare.htm", Table({})},
            {"place.htm", Table({{"OK", "Fine", "http://h/fine"}, {"", "Only a place", "http://h/place"}})}};
}

std::tm Time() {
    std::tm time{};
    time.tm_year = 126, time.tm_mon = 2, time.tm_mday = 4, time.tm_hour = 9, time.tm_min = 5, time.tm_sec = 7;
    return time;
}

std::string Report(ReportKind kind, bool questionableOnly, const std::vector<Page>& pages, int* turns = nullptr) {
    std::string bytes;
    ReportOutput output([&](std::string_view block) { bytes.append(block); });
    const auto writer = MakeReportWriter(kind, questionableOnly, output);
    writer->Begin({FileStamp(Time()), std::string(kSite) + "index.htm"});
    for (const auto& page : pages) {
        const std::string address = kSite + page.name;
        writer->Document({"  " + address + " ", address, page.links}, [&] {
            if (turns != nullptr) ++*turns;
        });
    }
    writer->End();
    return bytes;
}

std::string Expected(const std::string& name) {
    std::ifstream file(std::string(QV_TESTS) + "/reports/expected/" + name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    std::stringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

struct Form {
    ReportKind kind;
    const char* name;
};
struct EveryForm : testing::TestWithParam<Form> {};

TEST_P(EveryForm, AllRowsByteForByte) {
    EXPECT_EQ(Report(GetParam().kind, false, Pages()), Expected(std::string("all_") + GetParam().name));
}

TEST_P(EveryForm, QuestionableRowsByteForByte) {
    EXPECT_EQ(Report(GetParam().kind, true, Pages()), Expected(std::string("questionable_") + GetParam().name));
}

TEST_P(EveryForm, LongReportsComeInBlocks) {
    std::vector<Row> rows(9000, {"404", "A link", "http://www.example.test/a/long/address/for/a/page.htm"});
    const LinkTable links = Table(rows);
    std::vector<std::size_t> blocks;
    ReportOutput output([&](std::string_view block) { blocks.push_back(block.size()); });
    const auto writer = MakeReportWriter(GetParam().kind, false, output);
    writer->Begin({"", ""});
    writer->Document({"d", "d", links}, nullptr);
    writer->End();
    ASSERT_GT(blocks.size(), 3u);
    for (const auto size : blocks) EXPECT_LT(size, 160u * 1024);
}

INSTANTIATE_TEST_SUITE_P(Reports, EveryForm,
                         testing::Values(Form{ReportKind::Text, "text.txt"}, Form{ReportKind::Ascii, "ascii.txt"},
                                         Form{ReportKind::Html, "html.htm"}),
                         [](const auto& form) {
                             const std::string name = form.param.name;
                             return name.substr(0, name.find('.'));
                         });

std::vector<Page> Good() { return {{"a.htm", Table({{"OK", "x", "u"}})}, {"b.htm", Table({{"NA/SE", "y", "v"}, {"OK *", "z", "w"}})}}; }

TEST(ReportWriters, NothingQuestionable) {
    const std::string text = Report(ReportKind::Text, true, Good());
    EXPECT_EQ(text.find("Document: "), std::string::npos);
    EXPECT_NE(text.find(" Total Links Passed       : 3\r\n Total Links Questionable : 0\r\n Total Links All Documents: 3\r\n==="), std::string::npos);
    EXPECT_EQ(Report(ReportKind::Ascii, true, Good()), "\"DOCUMENT\",\"LINKNMBR\",\"STATUS\",\"LINKTEXT\",\"LINKURL\"\r\n");
    const std::string html = Report(ReportKind::Html, true, Good());
    EXPECT_NE(html.find("</B><P>\r\n<P><UL><LI>All links OK.</UL>\r\n<P>End Report\r\n"), std::string::npos);
    EXPECT_EQ(html.find("Web Page"), std::string::npos);
    EXPECT_EQ(Report(ReportKind::Html, false, Good()).find("All links OK"), std::string::npos);
}

TEST(ReportWriters, WithoutDocuments) {
    EXPECT_NE(Report(ReportKind::Text, false, {}).find(" Total Links All Documents: 0\r\n"), std::string::npos);
    EXPECT_NE(Report(ReportKind::Html, false, {}).find("<P><UL><LI>All links OK.</UL>\r\n"), std::string::npos);
}

TEST(ReportWriters, NumbersGrowWithoutPadding) {
    const std::vector<Page> pages = {{"a.htm", Table(std::vector<Row>(10000, {"404", "x", "u"}))}};
    const std::string text = Report(ReportKind::Text, false, pages);
    for (const char* label : {"999. x", "1000. x", "10000. x"}) {
        const std::string row = std::string("  404   ") + label + std::string(32 - std::string(label).size(), ' ') + " [u]\r\n";
        EXPECT_NE(text.find(row), std::string::npos) << row;
    }
    EXPECT_NE(text.find("  Total Checked: 10000 Links.\r\n"), std::string::npos);
    const std::string html = Report(ReportKind::Html, false, pages);
    EXPECT_NE(html.find("<TD WIDTH=10%>10000. x                         </TD>"), std::string::npos);
}

TEST(ReportWriters, TheTextFormGivesOthersATurnAtEachLink) {
    int turns = 0;
    Report(ReportKind::Text, true, Pages(), &turns);
    EXPECT_EQ(turns, 22);
}

TEST(ReportWriters, WhatPasses) {
    for (const char* status : {"OK", "OK    ", "OK *", "NA/SE", "NA/SC ", "NA"}) EXPECT_TRUE(Passes(status)) << status;
    for (const char* status : {"", "      ", "Ok", "ok", "na/se", "404", "301", "STOP", "O", "N", "-->", "TMOUT "})
        EXPECT_FALSE(Passes(status)) << status;
}

TEST(ReportWriters, TheClipboardHasQuestionableRowsAlone) {
    const auto pages = Pages();
    const ReportDocument document{"http://www.example.test/site/place.htm ", "", pages[3].links};
    EXPECT_EQ(ClipboardReport({ClipboardStamp(Time()), "http://www.example.test/site/index.htm"}, &document),
              "\r\n"
              " Web Page Link Validation Report\r\n"
              " (Mar 04,2026 - 09:05:07)\r\n"
              " http://www.example.test/site/index.htm\r\n"
              "\r\n"
              "=====================================================================\r\n"
              "\r\n"
              "Document: http://www.example.test/site/place.htm\r\n"
              "\r\n"
              "  Status          Link Text                      Link URL\r\n"
              "  -------------------------------------------------------------------\r\n"
              "        2. Only a place                  [http://h/place]\r\n"
              "  -------------------------------------------------------------------\r\n"
              "  Passed       : 1\r\n"
              "  Questionable : 1\r\n"
              "  Total Checked: 2 Links.\r\n"
              "\r\n"
              "\r\n"
              " Total Links Passed       : 1\r\n"
              " Total Links Questionable : 1\r\n"
              " Total Links All Documents: 2\r\n");
}

TEST(ReportWriters, TheClipboardWithoutQuestionableRowsOrDocument) {
    const auto pages = Pages();
    const ReportDocument document{"d", "", pages[1].links};
    const std::string head = "\r\n Web Page Link Validation Report\r\n (t)\r\n i\r\n\r\n";
    EXPECT_EQ(ClipboardReport({"t", "i"}, &document),
              head + " Total Links Passed       : 2\r\n Total Links Questionable : 0\r\n Total Links All Documents: 2\r\n");
    EXPECT_EQ(ClipboardReport({"t", "i"}, nullptr),
              head + " Total Links Passed       : 0\r\n Total Links Questionable : 0\r\n Total Links All Documents: 0\r\n");
}

}  // namespace
}  // namespace qv
