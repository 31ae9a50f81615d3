#include "retrieve/request_text.h"

#include <gtest/gtest.h>

#include "platform/bounds.h"

namespace qv {
namespace {

TEST(RequestHeaders, NameHostAgentAndAccept) {
    EXPECT_EQ(ComposeRequestHeaders("h.dom", 80, "", "\r\n"), "Host: h.dom\r\nAccept: */*\r\n");
    EXPECT_EQ(ComposeRequestHeaders("h", 81, "A/1", "\r\n"), "Host: h:81\r\nUser-Agent: A/1\r\nAccept: */*\r\n");
}

TEST(RequestPath, LosesSlashesBehindNames) {
    EXPECT_EQ(NormalizeRequestPath("/a/page.html/"), "/a/page.html");
    EXPECT_EQ(NormalizeRequestPath("/a/b.c/d/"), "/a/b.c/d/");
    EXPECT_EQ(NormalizeRequestPath("/dir//"), "/dir/");
    EXPECT_EQ(NormalizeRequestPath("/e.htm//"), "/e.htm");
    EXPECT_EQ(NormalizeRequestPath("/f.g/h///"), "/f.g/h//");
    EXPECT_EQ(NormalizeRequestPath("/q.htm?a=b/"), "/q.htm?a=b");
    EXPECT_EQ(NormalizeRequestPath("/"), "/");
    EXPECT_EQ(NormalizeRequestPath("//"), "/");
    EXPECT_EQ(NormalizeRequestPath(""), "");
}

TEST(ServerQuery, BecomesThePath) {
    EXPECT_FALSE(SplitServerQuery("h"));
    const auto split = SplitServerQuery("h?x=1");
    ASSERT_TRUE(split);
    EXPECT_EQ(split->server, "h");
    EXPECT_EQ(split->path, "/?x=1");
}

TEST(CommaHosts, ArePartedByCommaOrItsCode) {
    EXPECT_FALSE(SplitCommaHost("host"));
    EXPECT_EQ(SplitCommaHost("a,b")->left, "a");
    EXPECT_EQ(SplitCommaHost("a%2Cb")->right, "b");
    EXPECT_EQ(SplitCommaHost("a%2cb,c")->left, "a%2cb");
}

TEST(CommaHosts, GiveThePartOfTheRootsKind) {
    EXPECT_EQ(CheckDomainOrIP("http://name.dom/", "Name.Dom,1.2.3.4"), "name.dom");
    EXPECT_EQ(CheckDomainOrIP("http://1.2.3.4/", "name,1.2.3.4"), "1.2.3.4");
    EXPECT_EQ(CheckDomainOrIP("http://1.2.3.4/", "name%2C 1.2.3.4 "), "1.2.3.4");
    EXPECT_EQ(CheckDomainOrIP("http://n/", "plain"), "plain");
}

TEST(NumericHosts, AreDigitsAndDots) {
    EXPECT_TRUE(IsNumericHost("1.2.3.4.5"));
    EXPECT_TRUE(IsNumericHost(""));
    EXPECT_FALSE(IsNumericHost("1.2.3.a"));
}

struct RedirectCase {
    const char* path;
    const char* location;
    const char* expected;
};

class RedirectTargets : public testing::TestWithParam<RedirectCase> {};

TEST_P(RedirectTargets, AreBuiltAsTold) {
    const auto& param = GetParam();
    const auto target =
        ParseRedirect("Server: s\r\nLocation: " + std::string(param.location) + "\r\n: \r\n", {"http", "h.dom", 81, param.path});
    ASSERT_TRUE(target);
    EXPECT_EQ(*target, param.expected);
}

INSTANTIATE_TEST_SUITE_P(Redirect, RedirectTargets,
                         testing::Values(RedirectCase{"/r/", "x.htm", "http://h.dom:81/r/x.htm"},
                                         RedirectCase{"/r", "x.htm", "http://h.dom:81/r/x.htm"},
                                         RedirectCase{"", "x.htm", "http://h.dom:81/x.htm"},
                                         RedirectCase{"/r/page.htm", "other.htm", "http://h.dom:81/r/page.ht"},
                                         RedirectCase{"/r/page.htm", "../other.htm", "http://h.dom:81/r/page.ht"},
                                         RedirectCase{"/list?n=12", "o", "http://h.dom:81/list?n=1"},
                                         RedirectCase{"/d=e/x", "o", "http://h.dom:81/d=e/"},
                                         RedirectCase{"/r.d/deep/", "x.htm", "http://h.dom:81/r.d/deep/x.htm"},
                                         RedirectCase{"/r/page.htm", "/t 1;2", "http://h.dom:81/t%201%3B2"},
                                         RedirectCase{"/r/page.htm", "/t&amp;1", "http://h.dom:81/t&1"},
                                         RedirectCase{"/r/page.htm", "  /T/Page.HTM  ", "http://h.dom:81/T/Page.HTM"},
                                         RedirectCase{"/r/page.htm", "HTTP://o/x", "HTTP://o/x"},
                                         RedirectCase{"/r/", "", "http://h.dom:81/r/"}));

TEST(RedirectSearch, CutsAnAddressThatIsTooLong) {
    const std::string prefix = "http://h/";
    for (const auto& [location, start] : {std::pair{"http://h/" + std::string(70000, 'x'), 'x'}, {"/" + std::string(40000, ' '), '%'}}) {
        const auto target = ParseRedirect("Location: " + location + (start == '%' ? "y\r\n" : "\r\n"), {"http", "h", 80, "/a"});
        ASSERT_TRUE(target);
        EXPECT_EQ(target->size(), bounds::kAddressBytes);
        EXPECT_EQ(target->substr(0, prefix.size() + 1), prefix + start);
    }
}

TEST(RedirectSearch, PassesOverLongerNames) {
    const RedirectBase base{"http", "h", 80, "/a"};
    EXPECT_EQ(ParseRedirect("Content-Location: /w\r\nLocation: /t\r\n", base), "http://h/t");
    EXPECT_EQ(ParseRedirect("LOCATION: /t\r\nContent-Location: /w\r\n", base), "http://h/t");
    EXPECT_EQ(ParseRedirect("Relocation: /t\r\n", base), "http://h/t");
    EXPECT_EQ(ParseRedirect("Content-Location: /w\r\n", base), std::nullopt);
    EXPECT_EQ(ParseRedirect("", base), std::nullopt);
}

TEST(LengthOfReply, IsTheNumberBehindItsField) {
    EXPECT_EQ(ContentLength("A: b\r\nContent-Length: 123\r\n"), 123);
    EXPECT_EQ(ContentLength("Content-Length: x\r\n"), 0);
    EXPECT_EQ(ContentLength("A: b\r\n"), std::nullopt);
    EXPECT_EQ(ContentLength("content-length: 99999999999999\r\n"), 2147483647);
    for (const std::size_t digits : {38U, 400U})
        EXPECT_EQ(ContentLength("Content-Length: -" + std::string(digits, '1') + "\r\n"), -2147483648);
}

TEST(LineEndsOfChunks, GetACarriageReturn) {
    EXPECT_EQ(NormalizeLineEnds("a\nb\r\nc\n\n"), "a\r\nb\r\nc\r\n\r\n");
    EXPECT_EQ(NormalizeLineEnds("\na"), "\na");
    EXPECT_EQ(NormalizeLineEnds("\n\n"), "\n\r\n");
    EXPECT_EQ(NormalizeLineEnds("\ra"), "\ra");
    EXPECT_EQ(NormalizeLineEnds(""), "");
}

TEST(RootSlash, IsAddedToAHostAlone) {
    EXPECT_EQ(WithRootSlash("http://h"), "http://h/");
    EXPECT_EQ(WithRootSlash("http://h/"), "http://h/");
    EXPECT_EQ(WithRootSlash("http://h?x=1"), "http://h?x=1/");
    EXPECT_EQ(WithRootSlash("http:/h"), "http:/h");
}

TEST(SiteTexts, AHostOfTwoNamesIsComparedByTheRootsKind) {
    EXPECT_TRUE(CheckCommaDelimited("http://h/", "http://h,1.2.3.4/x"));
    EXPECT_TRUE(CheckCommaDelimited("http://h/", "http://1.2.3.4%2Ch/x"));
    EXPECT_TRUE(CheckCommaDelimited("http://1.2.3.4/", "http://H,1.2.3.4/x"));
    EXPECT_TRUE(CheckCommaDelimited("http://h/", "http://H,1.2.3.4/x"));
    EXPECT_FALSE(CheckCommaDelimited("http://H/", "http://H,1.2.3.4/x"));  // the root's server isn't lower-cased
    EXPECT_FALSE(CheckCommaDelimited("http://h/", "http://g,1.2.3.4/x"));
    EXPECT_FALSE(CheckCommaDelimited("http://h/", "http://h/x"));
}

TEST(SiteTexts, ARootEndsWithItsLastSlash) {
    EXPECT_EQ(RootOfSite("http", "h", 80, "/a/b.htm"), "http://h/a/");
    EXPECT_EQ(RootOfSite("http", "h", 8080, "/"), "http://h:8080/");
    EXPECT_EQ(RootOfSite("http", "h", 80, ""), "http://h/");
}

}  // namespace
}  // namespace qv
