#include <gtest/gtest.h>

#include "bookmarks/bookmark_mode.h"
#include "controls/window_system.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_files.h"
#include "fakes/fake_loop.h"
#include "fakes/fake_programs.h"
#include "fakes/fake_windows.h"

namespace qv {
namespace {

std::string Bar(const std::vector<std::pair<std::string, std::string>>& entries) {
    std::string bytes;
    for (int group = 1; group <= 12; ++group) {
        const bool first = group == 1;
        bytes += "[Group " + std::to_string(group) + "]\r\nT\r\n " + std::to_string(first ? entries.size() : 0) + "\r\n";
        for (const auto& [url, title] : first ? entries : decltype(entries){})
            bytes += "\"" + url + "\"\r\n" + title + "\r\n\r\n 0\r\n 0\r\n 0\r\n 0\r\n\r\n\r\n\r\n";
    }
    return bytes;
}

struct Mode : testing::Test, WindowListener {
    FakeClock clock;
    FakeLoop loop{clock};
    FakeFiles files;
    FakePrograms programs;
    FakeWindows others;
    RunFlags flags;
    Session session;
    Settings settings;
    WindowSystem windows{[] {}};
    CheckForm window{windows};
    DocumentStore store{files, session};
    WindowRules rules{window, session, settings, programs, store};
    LinkRows rows{window.List1, window.FontNamePicture, session, settings, flags};
    ModeCommands modes{window, rules, session, settings};
    BookmarkMode bookmarks{{window, rules, modes, session, settings, flags, store, rows, files, others, loop}};
    std::vector<std::string> messages;
    std::optional<std::string> chosen = "\\b\\*.";
    FileDialogRequest dialog;
    int cleared = 0;

    Mode() {
        session.AppPath = "\\home\\";
        session.MainWindowShown = kSet;
        windows.Listen(this);
        window.SetVisible(true);
        modes.MenuFileNew_Click = [this] {
            ++cleared;
            window.txtFileName.Clear();
            window.List1.Clear();
        };
        modes.SaveBookmarks = [this] { bookmarks.UpdateBookmarks(); };
        bookmarks.txtFileName_Click = [this] { Show(); };
        window.txtFileName.Click = [this] {
            if (flags.IgnoreControlEvents == 0) Show();
        };
        files.files["\\b\\bookb1.zdt"] = "First bar\r\nrest\r\n";
        files.files["\\b\\bookm1.zdt"] = Bar({{"http://h/a", "A"}, {"http://h/b", "B"}});
        files.files["\\b\\BOOKB3.ZDT"] = "Third bar\r\n";
        files.files["\\b\\BookM3.zdt"] = Bar({{"http://h/c", "C"}});
    }
    void Show() {
        store.LoadLinkList(window.txtFileName.ItemData(window.txtFileName.ListIndex()));
        window.List1.Clear();
        rows.AddAllRows();
    }
    void Enter() { bookmarks.MenuFileZephonMode_Click(); }
    void FormShown(Form&) override {}
    void FormClosed(const Form&) override {}
    void MessageShown(const MessageRequest& request) override {
        messages.push_back(request.text);
        windows.Answer(request.defaultButton);
    }
    void DialogShown(const FileDialogRequest& request) override {
        dialog = request;
        windows.Answer(chosen);
    }
    void Beeped() override {}
};

TEST_F(Mode, BarsAreDocumentsAndBookmarksLinks) {
    files.files["\\b\\bookb2.zdt"] = "";
    files.files["\\b\\bookb7.zdt"] = "No bookmarks\r\n";
    files.files["\\b\\bookm7.zdt"] = Bar({});
    files.files["\\b\\bookb300.zdt"] = "Last bar\r\n";
    files.files["\\b\\bookm300.zdt"] = Bar({{"u", "t"}});
    files.files["\\b\\bookb301.zdt"] = "Too far\r\n";
    files.files["\\b\\bookm301.zdt"] = Bar({{"u", "t"}});
    flags.HideGoodLinks = kSet;
    Enter();
    EXPECT_EQ(dialog.title, "Locate Your Zephon Bookmarks Data Folder...");
    EXPECT_EQ(dialog.filter, "All Files (*.*)|*.*");
    EXPECT_EQ(dialog.name, "*.");
    ASSERT_EQ(window.txtFileName.Count(), 3);
    EXPECT_EQ(window.txtFileName.Text(1), "Third bar");
    EXPECT_EQ(window.txtFileName.ItemData(1), 3);
    EXPECT_EQ(window.txtFileName.ItemData(2), 300);
    EXPECT_EQ(window.LabelInd.Caption(), " 4 Bookmarks Imported.");
    EXPECT_EQ(window.List1.Count(), 14);
    EXPECT_EQ(files.files["\\home\\cache\\xlf00003.qvn"], "Third bar\r\n");
    EXPECT_EQ(window.Caption(), "Zephon Quorvantis - Zephon Bookmarks Mode");
    EXPECT_EQ(window.lblFileName.Caption(), "Zephon Bookmarks Toolbars");
    EXPECT_EQ(window.MenuLinkView.Caption(), "&Edit Bookmark");
    EXPECT_FALSE(window.ComOpen.Visible() || window.Command1.Visible() || window.MenuView.Visible() || window.MenuLinkOpen.Visible());
    EXPECT_TRUE(window.MenuLinkDelete.Visible() && window.MenuZephonSave.Visible());
    EXPECT_EQ(flags.HideGoodLinks, kClear);
    EXPECT_TRUE(window.List1.Enabled());
    EXPECT_EQ(cleared, 1);
    Enter();  // the present mode
    EXPECT_EQ(cleared, 1);
}

TEST_F(Mode, CancelChangesNothing) {
    chosen = std::nullopt;
    Enter();
    EXPECT_EQ(settings.ProgramMode, kInternetMode);
    EXPECT_EQ(cleared, 0);
    EXPECT_TRUE(messages.empty());
}

TEST_F(Mode, AFolderWithoutBookmarksIsRefused) {
    chosen = "\\empty\\*.";
    Enter();
    EXPECT_EQ(messages, std::vector<std::string>{"Couldn't find any bookmark files in that directory."});
    EXPECT_EQ(settings.ProgramMode, kInternetMode);
    EXPECT_TRUE(files.FileExists("\\empty\\bookb1.zdt"));  // looking for it leaves it there
    EXPECT_EQ(cleared, 0);
}

TEST_F(Mode, DeletedBookmarksLeaveTheFileAtAnUpdateAndTheRowsStayInStep) {
    const std::string third = files.files["\\b\\BookM3.zdt"];
    Enter();
    window.List1.SetListIndex(1);
    bookmarks.MenuLinkDelete_Click();
    EXPECT_EQ(window.List1.Text(1).substr(38), " [TO DELETE: http://h/a]");
    EXPECT_EQ(window.List1.ListIndex(), 1);
    EXPECT_EQ(rules.BookmarksChanged, kSet);
    EXPECT_EQ(files.files["\\b\\bookm1.zdt"], Bar({{"http://h/a", "A"}, {"http://h/b", "B"}}));
    session.Links.LinkFlags[3].SetStatus("404");
    store.SaveLinkList(1);
    bookmarks.UpdateBookmarks();
    EXPECT_EQ(files.files["\\b\\bookm1.zdt"], Bar({{"http://h/b", "B"}}));
    EXPECT_EQ(files.files["\\b\\BookM3.zdt"], third);
    EXPECT_EQ(rules.BookmarksChanged, kClear);
    EXPECT_EQ(window.LabelInd.Caption(), "");
    ASSERT_EQ(window.List1.Count(), 13);
    EXPECT_EQ(session.Links.LinkUrls[1], "GROUP: 1 Bookmarks");
    EXPECT_EQ(session.Links.LinkUrls[2], "http://h/b");
    EXPECT_EQ(session.Links.LinkFlags[2].TrimmedStatus(), "404");
    window.List1.SetListIndex(1);
    bookmarks.MenuLinkDelete_Click();
    bookmarks.UpdateBookmarks();
    EXPECT_EQ(files.files["\\b\\bookm1.zdt"], Bar({}));
}

TEST_F(Mode, AGroupThatIsMarkedStaysAndItsBookmarksToo) {
    const std::string before = files.files["\\b\\bookm1.zdt"];
    Enter();
    session.Links.LinkFlags[2].SetStatus("OK");
    session.Links.LinkFlags[3].SetStatus("404");
    window.List1.SetListIndex(0);
    bookmarks.MenuLinkDelete_Click();
    EXPECT_EQ(session.Links.LinkUrls[1], "TO DELETE: GROUP: 2 Bookmarks");
    EXPECT_EQ(rules.BookmarksChanged, kSet);
    bookmarks.UpdateBookmarks();
    EXPECT_EQ(files.files["\\b\\bookm1.zdt"], before);
    EXPECT_EQ(session.Links.LinkUrls[1], "GROUP: 2 Bookmarks");
    EXPECT_EQ(session.Links.LinkFlags[2].TrimmedStatus(), "OK");
    EXPECT_EQ(session.Links.LinkFlags[3].TrimmedStatus(), "404");
}

TEST_F(Mode, ABarWithoutAFileHasItsCacheAndNoEntry) {
    files.files["\\b\\bookb2.zdt"] = "Second bar\r\n";
    Enter();
    EXPECT_EQ(window.txtFileName.Count(), 2);
    EXPECT_EQ(files.files["\\home\\cache\\xlf00002.qvn"], "Second bar\r\n");
    EXPECT_TRUE(files.FileExists("\\home\\cache\\xlf00002.lks"));
}

TEST_F(Mode, WhatIsInvisibleIsDisabledAndWhatIsVisibleIsNot) {
    const auto states = [&] {
        std::string text;
        for (const Menu* menu : {&window.MenuView, &window.MenuLinkOpen, &window.MenuLinkDelete, &window.MenuZephonSave})
            text += std::to_string(menu->Visible()) + std::to_string(menu->Enabled()) + " ";
        return text;
    };
    Enter();
    EXPECT_EQ(states(), "00 00 11 11 ");
    modes.MenuFileNormalMode_Click();
    EXPECT_EQ(states(), "11 11 00 00 ");
}

TEST_F(Mode, EditedBookmarksAreWrittenBack) {
    Enter();
    window.List1.SetListIndex(2);
    bool okay = false;
    bookmarks.ShowEditForm = [&] {
        session.Links.LinkTexts[3] = "Changed";
        session.Links.Touch();
        return okay;
    };
    bookmarks.MenuLinkView_Click();
    EXPECT_EQ(rules.BookmarksChanged, kClear);
    okay = true;
    bookmarks.MenuLinkView_Click();
    EXPECT_EQ(rules.BookmarksChanged, kSet);
    bookmarks.UpdateBookmarks();
    EXPECT_EQ(files.files["\\b\\bookm1.zdt"], Bar({{"http://h/a", "A"}, {"http://h/b", "Changed"}}));
}

TEST_F(Mode, NothingIsChangedWhileTheCompanionRuns) {
    Enter();
    others.titles = {"Zephon Bookmarks - help", "Zephon Bookmarks"};
    window.List1.SetListIndex(1);
    bookmarks.ShowEditForm = [] {
        ADD_FAILURE();
        return true;
    };
    bookmarks.MenuLinkDelete_Click();
    bookmarks.MenuLinkView_Click();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0],
              "Zephon Bookmarks is currently running. You must exit Zephon Bookmarks in order to edit your Bookmarks in Quorvantis.");
    EXPECT_EQ(session.Links.LinkUrls[2], "http://h/a");
    others.titles = {"Zephon Bookmarks - help", "zephon bookmarks"};
    EXPECT_FALSE(bookmarks.CompanionRunning());
}

TEST_F(Mode, LeavingAsksAboutChanges) {
    Enter();
    window.List1.SetListIndex(1);
    bookmarks.MenuLinkDelete_Click();
    modes.MenuFileNormalMode_Click();
    EXPECT_EQ(messages, std::vector<std::string>{"Update Zephon Bookmarks with your changes?"});
    EXPECT_EQ(files.files["\\b\\bookm1.zdt"], Bar({{"http://h/b", "B"}}));
    EXPECT_TRUE(window.ComOpen.Visible() && window.MenuView.Visible());
    EXPECT_FALSE(window.MenuZephonSave.Visible() || window.MenuLinkDelete.Visible());
    EXPECT_EQ(window.MenuLinkView.Caption(), "&View Selected Link");
    Enter();
    EXPECT_EQ(window.LabelInd.Caption(), " 2 Bookmarks Imported.");
}

}  // namespace
}  // namespace qv
