#include "session/link_rows.h"

#include <gtest/gtest.h>

#include "controls/form.h"
#include "controls/window_system.h"

namespace qv {
namespace {

std::string Label(std::int32_t number, const std::string& text) { return LinkRowText(number, text, "u", "").substr(6, 32); }

TEST(LinkRowText, StandsInThreeColumns) {
    EXPECT_EQ(LinkRowText(7, "Home page", "http://h/", "OK"), "OK    7. Home page                     [http://h/]");
}

TEST(LinkRowText, KeepsALabelOf32CharactersAndCutsOneOf33) {
    const std::string text27(27, 'x');
    EXPECT_EQ(Label(100, text27), "100. " + text27);
    EXPECT_EQ(Label(1000, text27), "1000. " + std::string(24, 'x') + "..");
    EXPECT_EQ(Label(1000, std::string(26, 'x')), "1000. " + std::string(26, 'x'));
}

TEST(LinkRowText, CutsByCharactersNotBytes) {
    std::string text;
    for (int i = 0; i < 40; ++i) text += "\xC3\xA9";
    const std::string row = LinkRowText(1, text, "u", "");
    EXPECT_EQ(row.substr(6), "1. " + text.substr(0, 54) + ".. [u]");
}

TEST(HiddenStatus, HidesGoodAndBlankOnes) {
    for (const char* status : {"", "OK", "OK *", "NA/SE", "NA"}) EXPECT_TRUE(IsHiddenStatus(status, false)) << status;
    for (const char* status : {"-->", "404", "NTFND", "STOP", "OKAY"}) EXPECT_FALSE(IsHiddenStatus(status, true)) << status;
}

TEST(HiddenStatus, HidesRedirectsWhereTheyCountAsGood) {
    EXPECT_TRUE(IsHiddenStatus("301", true));
    EXPECT_TRUE(IsHiddenStatus("302", true));
    EXPECT_FALSE(IsHiddenStatus("301", false));
    EXPECT_FALSE(IsHiddenStatus("302", false));
}

struct Rows : testing::Test {
    WindowSystem windows{[] {}};
    Form form{windows, "F", ""};
    ListBox list{form, "List1", ListBox::SelectionKind::Multiple};
    Picture picture{form, "FontNamePicture"};
    Session session;
    Settings settings;
    RunFlags flags;
    LinkRows rows{list, picture, session, settings, flags};

    void Add(const char* text, const char* url, char mark, const char* status, const char* path = "") {
        LinkFlag flag;
        flag.Mark = mark;
        flag.SetStatus(status);
        session.Links.Add(text, url, flag, path);
    }
};

TEST_F(Rows, SelectionFollowsTheMark) {
    Add("a", "u1", 'X', "");
    Add("b", "u2", ' ', "404");
    rows.AddAllRows();
    ASSERT_EQ(list.Count(), 2);
    EXPECT_TRUE(list.Selected(0));
    EXPECT_FALSE(list.Selected(1));
    EXPECT_EQ(list.ItemData(1), 2);
}

TEST_F(Rows, HidingLeavesRowsOutAndKeepsLinkNumbers) {
    Add("a", "u1", ' ', "OK");
    Add("b", "u2", ' ', "404");
    Add("c", "u3", 'X', "");
    Add("d", "u4", 'X', "-->");
    flags.HideGoodLinks = kSet;
    rows.AddAllRows();
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Text(0), LinkRowText(2, "b", "u2", "404"));
    EXPECT_EQ(list.Text(1), LinkRowText(4, "d", "u4", "-->"));
}

TEST_F(Rows, RefreshNumbersByPositionAndNeverRemoves) {
    Add("a", "u1", ' ', "OK");
    Add("b", "u2", ' ', "404");
    flags.HideGoodLinks = kSet;
    rows.AddAllRows();
    session.Links.LinkFlags[2].SetStatus("OK");
    session.Links.LinkFlags[2].Mark = 'X';
    rows.RefreshLinkRow(0);
    ASSERT_EQ(list.Count(), 1);
    EXPECT_EQ(list.Text(0), LinkRowText(1, "b", "u2", "OK"));
    EXPECT_TRUE(list.Selected(0));
}

TEST_F(Rows, LocalModeShowsThePath) {
    Add("a", "u1", ' ', "", "\\w\\a.htm");
    Add("b", "u2", ' ', "");
    settings.ProgramMode = kLocalMode;
    rows.AddAllRows();
    EXPECT_EQ(list.Text(0), LinkRowText(1, "a", "\\w\\a.htm", ""));
    EXPECT_EQ(list.Text(1), LinkRowText(2, "b", "u2", ""));
    std::string row = "  ";
    BuildLinkRowText(session.Links, 1, row);
    EXPECT_EQ(row, "  " + LinkRowText(1, "a", "u1", ""));
}

TEST_F(Rows, HidingInBookmarksModeLeavesGroupsOut) {
    Add("g", "GROUP: one", ' ', "404");
    Add("s", "x SUBTITLE", ' ', "404");
    flags.HideGoodLinks = kSet;
    settings.ProgramMode = kBookmarksMode;
    rows.AddAllRows();
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(Rows, TheExtentIsThatOfTheLongestRow) {
    Add("a", "u", ' ', "");
    Add("b", "a longer address", ' ', "");
    picture.SetCharacterWidth(7);
    rows.AddAllRows();
    rows.SetListExtent();
    EXPECT_EQ(list.HorizontalExtent(), static_cast<long>(list.Text(1).size() + 3) * 7);
}

}  // namespace
}  // namespace qv
