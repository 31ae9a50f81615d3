#include "extract/url_text.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

const std::string kTypes = " .htm .html .shtml .asp .aspx .php .cfm .cfml .adp .nsf ";
const std::vector<std::string> kPaths = {"/cgi/", "/cgi-bin/", "/cgi-win/"};

std::string Encoded(std::string text) {
    PercentEncode(text);
    return text;
}
std::string Decoded(std::string text) {
    PercentDecode(text);
    return text;
}

TEST(UrlText, ConvertsSlashesBothWays) {
    std::string text = "a/b\\c";
    ConvertSlashes(text, 0);
    EXPECT_EQ(text, "a\\b\\c");
    ConvertSlashes(text, 7);
    EXPECT_EQ(text, "a/b/c");
}

TEST(UrlText, MakesFileNames) {
    std::string text = "http://host.dom/a/b.htm";
    MakeFileNameText(text);
    EXPECT_EQ(text, "host_dom_a_b_htm");
    text = "no-scheme.X9";
    MakeFileNameText(text);
    EXPECT_EQ(text, "no_scheme_X9");
    text = "a://b://c";
    MakeFileNameText(text);
    EXPECT_EQ(text, "b___c");
}

TEST(UrlText, DecodesEveryCodeOfTheTableInUpperCaseAlone) {
    EXPECT_EQ(Decoded("%20%3C%3E%23%25%7B%7D%7C%5C%5E%7E%5B%5D%60%3B%2F%3F%3A%40%3D%26%24%27"), " <>#%{}|\\^~[]`;/?:@=&$'");
    EXPECT_EQ(Decoded("a%20b%2Fc"), "a b/c");
    EXPECT_EQ(Decoded("a%2fb"), "a%2fb");
    EXPECT_EQ(Decoded("%21"), "%21");
}

TEST(UrlText, DecodesInTheOrderOfTheTable) {
    EXPECT_EQ(Decoded("%2520"), "%20");
    EXPECT_EQ(Decoded("%253C"), "%3C");
    EXPECT_EQ(Decoded("%252F"), "/");
}

TEST(UrlText, EncodesTheNarrowerList) {
    EXPECT_EQ(Encoded(" <>{}|\\^[]`;@$'"), "%20%3C%3E%7B%7D%7C%5C%5E%5B%5D%60%3B%40%24%27");
    EXPECT_EQ(Encoded("#%~/?:=&"), "#%~/?:=&");
    EXPECT_EQ(Encoded("a b;c"), "a%20b%3Bc");
    EXPECT_EQ(Encoded("x?a=1&b=2"), "x?a=1&b=2");
}

TEST(UrlText, MendsTheRemnantsOfEntities) {
    EXPECT_EQ(Encoded("a&amp;b"), "a&b");
    EXPECT_EQ(Encoded("a&nbsp;b"), "a%20b");
    EXPECT_EQ(Encoded("a&amp%3Bb"), "a&b");
}

TEST(IgnoredDocument, NeverIsAServersRoot) {
    EXPECT_FALSE(IsIgnoredDocument("http://host", "", {""}));
    EXPECT_FALSE(IsIgnoredDocument("http://host/", "", {""}));
}

TEST(IgnoredDocument, IsJudgedByItsExtension) {
    EXPECT_TRUE(IsIgnoredDocument("http://host/a.pdf", kTypes, kPaths));
    EXPECT_FALSE(IsIgnoredDocument("http://host/a.HTM?x=1", kTypes, kPaths));
    EXPECT_FALSE(IsIgnoredDocument("http://host/a.htm#x.pdf", kTypes, kPaths));
    EXPECT_TRUE(IsIgnoredDocument("http://host/a.htm?b?c.htm", kTypes, kPaths));
    EXPECT_FALSE(IsIgnoredDocument("http://host/dir/", kTypes, kPaths));
    EXPECT_TRUE(IsIgnoredDocument("http://host/v1.2/page", kTypes, kPaths));
    EXPECT_TRUE(IsIgnoredDocument("http://host/a.", kTypes, kPaths));
    EXPECT_FALSE(IsIgnoredDocument("http://host/name", kTypes, kPaths));
}

TEST(IgnoredDocument, IsJudgedByItsPathExactly) {
    EXPECT_TRUE(IsIgnoredDocument("http://host/cgi-bin/a.htm", kTypes, kPaths));
    EXPECT_FALSE(IsIgnoredDocument("http://host/CGI-BIN/a.htm", kTypes, kPaths));
    EXPECT_TRUE(IsIgnoredDocument("http://host/a.htm", kTypes, {""}));
}

TEST(IgnoredDocument, WithFewerThanTwoSlashesIsJudgedWhole) {
    EXPECT_TRUE(IsIgnoredDocument("name.pdf", kTypes, kPaths));
    EXPECT_FALSE(IsIgnoredDocument("name.htm", kTypes, kPaths));
}

TEST(IgnoredLinkPath, IsContainedExactly) {
    EXPECT_TRUE(IsIgnoredLinkPath("http://host/banners/a.gif", {"/banners/"}));
    EXPECT_FALSE(IsIgnoredLinkPath("http://host/Banners/a.gif", {"/banners/"}));
    EXPECT_FALSE(IsIgnoredLinkPath("http://host/", {}));
}

}  // namespace
}  // namespace qv
