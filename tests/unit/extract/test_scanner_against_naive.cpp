// The scanner against the slow and obvious import, on generated pages.
#include <gtest/gtest.h>

#include <random>

#include "extract/naive_importer.h"
#include "extract/page_scanner.h"

namespace qv {
namespace {

const std::vector<std::string> kPieces = {"<a ",
                                          "<a",
                                          "<A HREF=",
                                          "href=\"",
                                          "href=",
                                          "HREF",
                                          "\"",
                                          "\"\"",
                                          ">",
                                          "</a>",
                                          "</A>",
                                          "/a>",
                                          "<",
                                          "</",
                                          "text",
                                          " ",
                                          "  ",
                                          "\t",
                                          "<area ",
                                          "<applet code=\"",
                                          "<option value=\"http://h/x\">",
                                          "<option ",
                                          "value",
                                          "http:",
                                          "ftp:",
                                          "<frame src=\"",
                                          "<frameset>",
                                          "src=\"",
                                          "<img ",
                                          "<IMG SRC=\"p.gif\">",
                                          "<img",
                                          "ismap",
                                          "<meta ",
                                          "url=",
                                          "URL",
                                          "location=",
                                          "content=\"5; url=n.htm\"",
                                          ";",
                                          "<body background=\"",
                                          "<bgsound src=\"s\"",
                                          "<embed src=\"e\">",
                                          "code",
                                          "background",
                                          "<script>",
                                          "</script>",
                                          "<script",
                                          "/script>",
                                          "<SCRIPT>",
                                          "javascript:x",
                                          "mailto:",
                                          "news:",
                                          "../",
                                          "./",
                                          "/",
                                          "#",
                                          "#top",
                                          "x.htm",
                                          "//",
                                          "http://h",
                                          "http://h/banners/a",
                                          "&amp;",
                                          "&nbsp;",
                                          "&am",
                                          "p;",
                                          "=",
                                          "\r\n",
                                          "\r\n",
                                          "\n",
                                          "\r",
                                          "\n\n",
                                          "-",
                                          "<b>",
                                          "<br",
                                          "\xC3\xA9",
                                          std::string(1, '\0')};

std::string MakePage(std::mt19937& random, std::size_t pieces) {
    std::string page;
    std::uniform_int_distribution<std::size_t> pick(0, kPieces.size() - 1);
    for (std::size_t i = 0; i < pieces; ++i) page += kPieces[pick(random)];
    return page;
}

// A page whose pieces are picked from a few only, so that the same tags come again and again.
std::string MakeNarrowPage(std::mt19937& random, std::size_t pieces) {
    std::uniform_int_distribution<std::size_t> pick(0, kPieces.size() - 1);
    std::vector<std::string> few;
    for (int i = 0; i < 7; ++i) few.push_back(kPieces[pick(random)]);
    few.emplace_back("\n");
    few.emplace_back("<a href=\"x\">");
    std::string page;
    std::uniform_int_distribution<std::size_t> pickFew(0, few.size() - 1);
    for (std::size_t i = 0; i < pieces; ++i) page += few[pickFew(random)];
    return page;
}

std::string Shown(const LinkTable& links) {
    std::string text;
    for (std::size_t i = 1; i < links.LinkTexts.size(); ++i)
        text += links.LinkTexts[i] + " | " + links.LinkUrls[i] + " | " + links.LinkPaths[i] + "\n";
    return text;
}

void Compare(const std::string& page, std::mt19937& random) {
    const std::vector<std::string> ignored = {"/banners/"};
    ScanSettings settings;
    settings.ignoreLinkPathList = &ignored;
    settings.ignoreJavaScript = static_cast<Flag>(static_cast<int>(random() % 3) - 1);
    settings.includeImages = random() % 4 != 0;
    settings.checkFtpLinks = random() % 2 == 0;
    DocumentBase base;
    base.ServerPrefix = "http://host.dom:81";
    SplitDocumentPath(random() % 2 == 0 ? "/a/b/c.htm" : "/", base);
    if (random() % 2 == 0) base.LocalBase = "\\web";
    base.localMode = random() % 2 == 0;
    base.SiteRoot = "http://h/";
    base.SiteFolder = "\\site\\";
    base.SiteFileName = "index.htm";
    LinkTable links;
    // An exact copy on the heap, so that a read past its end is seen.
    const std::unique_ptr<char[]> bytes(new char[page.size()]);
    std::copy(page.begin(), page.end(), bytes.get());
    PageScanner scanner(std::string_view(bytes.get(), page.size()), settings, base, links);
    while (scanner.Step()) {
    }
    EXPECT_EQ(scanner.Position(), page.size());
    ASSERT_EQ(Shown(links), Shown(ImportNaively(page, settings, base)))
        << "IgnoreJavaScript " << settings.ignoreJavaScript << ", page:\n"
        << page;
}

TEST(ScannerAgainstNaive, FindsTheSameRowsOnWildPages) {
    std::mt19937 random(20);
    for (int i = 0; i < 6000; ++i) {
        Compare(MakePage(random, 2 + random() % 60), random);
        if (HasFatalFailure()) return;
    }
}

TEST(ScannerAgainstNaive, FindsTheSameRowsOnMonotonousPages) {
    std::mt19937 random(21);
    for (int i = 0; i < 6000; ++i) {
        Compare(MakeNarrowPage(random, 2 + random() % 120), random);
        if (HasFatalFailure()) return;
    }
}

// Labels that are long and end at the same place.
TEST(ScannerAgainstNaive, FindsTheSameRowsWhereAnchorsAreClosedLate) {
    std::mt19937 random(23);
    for (int i = 0; i < 25; ++i) {
        std::string page;
        const std::size_t anchors = 20 + random() % 60;
        for (std::size_t n = 0; n < anchors; ++n) {
            page += "<a href=\"x" + std::to_string(n) + "\">";
            for (std::size_t words = random() % 12; words > 0; --words) page += random() % 3 == 0 ? "<b>some</b> " : "words &amp; ";
            if (random() % 4 != 0) page += random() % 2 == 0 ? "\r\n" : "\n";
        }
        Compare(page + "</a>", random);
        if (HasFatalFailure()) return;
    }
}

TEST(ScannerAgainstNaive, FindsTheSameRowsOnLongPages) {
    std::mt19937 random(22);
    for (int i = 0; i < 40; ++i) {
        Compare(i % 2 == 0 ? MakePage(random, 3000) : MakeNarrowPage(random, 3000), random);
        if (HasFatalFailure()) return;
    }
}

}  // namespace
}  // namespace qv
