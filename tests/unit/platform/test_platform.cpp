#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/http1.h"
#include "platform/url_parts.h"

namespace qv {
namespace {

TEST(SplitUrlTest, TakesThePartsApart) {
    EXPECT_EQ(SplitUrl("http://h.dom:81/a/b?c#d"), (UrlParts{"http", "", "", "h.dom", 81, "/a/b?c#d"}));
    EXPECT_EQ(SplitUrl("HTTP://h"), (UrlParts{"HTTP", "", "", "h", 80, ""}));
    EXPECT_EQ(SplitUrl("http://u:p:w@h/"), (UrlParts{"http", "u", "p:w", "h", 80, "/"}));
    EXPECT_EQ(SplitUrl("http://h?x=1"), (UrlParts{"http", "", "", "h?x=1", 80, ""}));
    EXPECT_EQ(SplitUrl("http://h:82?x=a:3@b"), (UrlParts{"http", "", "", "h?x=a:3@b", 82, ""}));
    EXPECT_EQ(SplitUrl("http://[::1]:83/"), (UrlParts{"http", "", "", "[::1]", 83, "/"}));
    EXPECT_EQ(SplitUrl("http://h:/x"), (UrlParts{"http", "", "", "h", 80, "/x"}));
    EXPECT_EQ(SplitUrl("http://h:99999/"), (UrlParts{"http", "", "", "h:99999", 80, "/"}));
    EXPECT_EQ(SplitUrl("ftp://h/f"), (UrlParts{"ftp", "", "", "h", 80, "/f"}));
    EXPECT_EQ(SplitUrl(""), (UrlParts{"http", "", "", "", 80, ""}));
}

TEST(RequestTargetTest, CanStandInARequestLine) {
    EXPECT_EQ(RequestTarget(""), "/");
    EXPECT_EQ(RequestTarget("/a b\r\nX: y"), "/a%20b%0D%0AX:%20y");
    EXPECT_EQ(RequestTarget("/a#top"), "/a");
    EXPECT_EQ(RequestTarget("a"), "/a");
    EXPECT_EQ(RequestTarget("/\xC3\xA9\x7F"), "/\xC3\xA9%7F");
}

TEST(Masks, FitWithoutRegardToCase) {
    EXPECT_TRUE(FitsMask("xlf00001.LKS", "*.lks"));
    EXPECT_TRUE(FitsMask("a_text.txt", "*_text.*"));
    EXPECT_TRUE(FitsMask("abc", "a?c"));
    EXPECT_TRUE(FitsMask("aXbXc", "a*b*c"));
    EXPECT_FALSE(FitsMask("abcd", "a?c"));
    EXPECT_FALSE(FitsMask("", "?"));
    EXPECT_TRUE(FitsMask("", "*"));
}

TEST(Paths, TurnTheirSlashes) {
    EXPECT_EQ(NativePath("\\home\\a/b"), "/home/a/b");
    EXPECT_EQ(PathText("/home/a"), "\\home\\a");
}

}  // namespace
}  // namespace qv
