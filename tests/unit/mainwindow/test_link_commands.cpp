#include "command_world.h"
#include "mainwindow/link_commands.h"

namespace qv {
namespace {

struct Commands : CommandWorld {
    SearchState search;
    LinkCommands commands{{window, rules, session, settings, flags, store, search, browser, loop}};
    int reloads = 0;
    std::string text;  // what the dialog gives; empty: it was cancelled

    Commands() {
        commands.txtFileName_Click = [this] {
            ++reloads;
            Show();
        };
        commands.ShowSearchForm = [this] {
            search.SelectionText = text;
            search.SearchCancelled = FlagOf(text.empty());
        };
        Document(1, {{"a", "http://h/red", "", "OK", ""}, {"b", "http://h/b", "X", "404", "\\x\\Red.htm"}, {"c", "http://h/c", "", "", ""}});
        Document(2, {{"d", "http://h/d", "X", "OK", ""}, {"e", "http://h/RED/e", "", "", ""}});
        session.Good.Add("http://h/red");
    }
    std::string All() { return Marks(1) + " " + Marks(2); }
};

TEST_F(Commands, AllNoneAndReset) {
    commands.MenuEditSelectAll_Click();
    EXPECT_EQ(All(), "XXX XX");
    EXPECT_EQ(session.Good.GoodLinkCount(), 0);
    commands.MenuEditSelectNone_Click();
    EXPECT_EQ(All(), "... ..");
    EXPECT_NE(files.files[Path(1)].find("\r\n404\r\n"), std::string::npos);
    commands.MenuEditReset_Click();
    EXPECT_EQ(All(), "XXX XX");
    EXPECT_EQ(files.files[Path(1)].find("404"), std::string::npos);
    EXPECT_EQ(reloads, 3);
    EXPECT_EQ(window.List1.ListIndex(), 0);
}

TEST_F(Commands, ControlsAreHeldMeanwhileAndTheHidingEnds) {
    flags.HideGoodLinks = kSet;
    window.ComHide.SetCaption("S&how All");
    window.txtFileName.SetFocus();
    int looked = 0;
    loop.Post([&] {
        ++looked;
        EXPECT_FALSE(window.List1.Enabled() || window.txtFileName.Enabled() || window.MenuFile.Enabled() || window.ComStart.Enabled());
        EXPECT_FALSE(window.List1.Visible());
        EXPECT_TRUE(window.ProgressBar1.Visible());
        EXPECT_EQ(window.ProgressBar1.Max(), 2);
        EXPECT_EQ(window.Pointer(), Pointer::Wait);
    });
    commands.MenuEditSelectAll_Click();
    EXPECT_EQ(looked, 1);
    EXPECT_EQ(flags.HideGoodLinks, kClear);
    EXPECT_EQ(window.ComHide.Caption(), "S&how Bad Only");
    EXPECT_TRUE(window.List1.Enabled() && window.List1.Visible());
    EXPECT_EQ(window.ProgressBar1.Value(), 0);
    EXPECT_EQ(window.Pointer(), Pointer::Default);
    EXPECT_TRUE(window.txtFileName.HasFocus());
}

TEST_F(Commands, ResetLeavesTheListVisible) {
    loop.Post([&] { EXPECT_TRUE(window.List1.Visible()); });
    commands.MenuEditReset_Click();
}

TEST_F(Commands, ContainAddsMarksWhateverTheCase) {
    text = "rEd";
    commands.MenuEditContain_Click();
    EXPECT_EQ(search.SearchMode, kSelectContaining);
    EXPECT_EQ(All(), "XX. XX");
    EXPECT_EQ(session.Good.GoodLinkCount(), 0);
}

TEST_F(Commands, DontContainMarksTheOthers) {
    text = "red";
    commands.MenuEditDontContain_Click();
    EXPECT_EQ(search.SearchMode, kSelectOthers);
    EXPECT_EQ(All(), ".XX X.");
}

TEST_F(Commands, InLocalModeTheFileIsTested) {
    settings.ProgramMode = kLocalMode;
    commands.MenuEditSelectNone_Click();
    text = "red";
    commands.MenuEditContain_Click();
    EXPECT_EQ(All(), "XX. .X");
}

TEST_F(Commands, AWordThatIsNowhereStillForgetsTheGoodLinks) {
    text = "nowhere";
    commands.MenuEditContain_Click();
    EXPECT_EQ(All(), ".X. X.");
    EXPECT_EQ(session.Good.GoodLinkCount(), 0);
}

TEST_F(Commands, ACancelledTextDoesNothing) {
    commands.MenuEditContain_Click();
    EXPECT_EQ(search.SearchCancelled, kClear);
    EXPECT_EQ(session.Good.GoodLinkCount(), 1);
    EXPECT_EQ(reloads, 0);
}

TEST_F(Commands, ADocumentWithoutAFileHasNoLinks) {
    files.files.erase(Path(1));
    commands.MenuEditSelectAll_Click();
    EXPECT_EQ(Marks(2), "XX");
}

TEST_F(Commands, ASessionThatIsClearedMeanwhileStaysSo) {
    loop.Post([&] {
        window.txtFileName.Clear();
        session.Links.Clear();
        files.files.clear();
    });
    commands.MenuEditSelectAll_Click();
    EXPECT_TRUE(files.files.empty());
}

TEST_F(Commands, HeadingsOfBookmarksAreNeverMarked) {
    settings.ProgramMode = kBookmarksMode;
    files.files[Path(1)] = "g\r\nGROUP: 1 Bookmarks\r\n\r\n\r\n\r\ns\r\nSUBTITLE\r\n\r\n\r\n\r\nb\r\nu\r\n\r\n404\r\n\r\n";
    commands.MenuEditSelectAll_Click();
    EXPECT_EQ(Marks(1), "..X");
    commands.MenuEditReset_Click();
    EXPECT_EQ(Marks(1), "..X");
    window.List1.SetListIndex(2);
    commands.MenuEditAbove_Click();
    EXPECT_EQ(Marks(1), "...");
    commands.MenuEditAbove_Click();
    EXPECT_EQ(Marks(1), "..X");
}

TEST_F(Commands, AboveAndBelowToggleOneDocument) {
    window.List1.SetListIndex(1);
    commands.MenuEditAbove_Click();
    EXPECT_EQ(All(), "X.. X.");
    EXPECT_EQ(window.List1.ListIndex(), 1);
    EXPECT_EQ(session.Good.GoodLinkCount(), 0);
    commands.MenuEditBelow_Click();
    EXPECT_EQ(All(), "XXX X.");
    window.List1.SetListIndex(0);
    commands.MenuEditAbove_Click();
    EXPECT_EQ(All(), ".XX X.");
    window.List1.SetListIndex(2);
    commands.MenuEditBelow_Click();
    EXPECT_EQ(All(), ".X. X.");
}

TEST_F(Commands, AboveCountsLinksAlsoWhileTheGoodOnesAreHidden) {
    flags.HideGoodLinks = kSet;
    Show();
    ASSERT_EQ(window.List1.Count(), 1);  // the second link
    commands.MenuEditAbove_Click();
    EXPECT_EQ(Marks(1), "X..");
    EXPECT_EQ(window.List1.Count(), 3);
    EXPECT_EQ(window.List1.ListIndex(), 1);
}

TEST_F(Commands, TheClipboardGetsTheAddressOrAnAnchor) {
    window.List1.SetListIndex(1);
    commands.MenuEditCopy_Click();
    EXPECT_EQ(windows.Clipboard(), "http://h/b");
    commands.MenuEditCopyLink_Click();
    EXPECT_EQ(windows.Clipboard(), "<A HREF=\"http://h/b\">b</A>");
}

TEST_F(Commands, PasteAsksTheBrowserByItsKeys) {
    others.titles = {"Netscape Mail", "A page - Chromium"};
    others.OnKey = [&](const std::string& key) {
        if (key == "Insert") windows.SetClipboard("http://h/page");
    };
    commands.MenuEditPaste_Click();
    EXPECT_EQ(window.TextFileName.Text(), "http://h/page");
    EXPECT_EQ(others.pressed, (std::vector<std::string>{"to A page - Chromium", "ctrl+l", "ctrl+Insert", "Escape"}));
    EXPECT_TRUE(window.txtFileName.HasFocus());
    EXPECT_TRUE(messages.empty());
}

TEST_F(Commands, PasteTriesThreeTimesAndThenSaysSo) {
    others.titles = {"A page - Netscape"};
    window.TextFileName.SetText("typed");
    commands.MenuEditPaste_Click();
    EXPECT_EQ(std::count(others.pressed.begin(), others.pressed.end(), "ctrl+Insert"), 3);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0],
              "Quorvantis can't communicate with your Browser.  Neither Netscape nor Internet Explorer is currently running. Please "
              "start your browser.");
    EXPECT_EQ(window.TextFileName.Text(), "typed");
    EXPECT_TRUE(window.txtFileName.HasFocus());
}

TEST(OtherWindowsTest, TitlesAreFoundWholeOrInPart) {
    const std::vector<std::string> titles = {"Netscape Mail", "Netscape's Help", "My page - Netscape", "Zephon Bookmarks"};
    EXPECT_EQ(FindWindowTitle(titles, "Netscape", true), "My page - Netscape");
    EXPECT_EQ(FindWindowTitle(titles, "netscape", true), "");
    EXPECT_EQ(FindWindowTitle(titles, "Zephon Bookmarks", false), "Zephon Bookmarks");
    EXPECT_EQ(FindWindowTitle(titles, "Zephon", false), "");
}

}  // namespace
}  // namespace qv
