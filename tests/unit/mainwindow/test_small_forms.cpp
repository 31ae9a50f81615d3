#include "command_world.h"
#include "controls/user_actions.h"
#include "mainwindow/edit_form.h"
#include "mainwindow/help.h"
#include "mainwindow/search_form.h"
#include "mainwindow/web_commands.h"

namespace qv {
namespace {

struct Search : CommandWorld {
    SearchState state;
    SearchForm form{{window, session, state, loop}};

    Search() {
        Document(1, {{"Apple", "http://h/alpha", "", "", ""}, {"Banana", "http://h/beta", "", "", ""}, {"apple pie", "http://h/Alphabet", "", "", ""}});
        Document(2, {});
        Document(3, {{"Cherry", "http://h/gamma", "", "", ""}, {"APPLE", "http://h/alphabet", "", "", ""}});
    }
    void Open(std::int16_t mode) {
        state.SearchMode = mode;
        windows.Show(form);
    }
    std::string At() { return std::to_string(window.txtFileName.ListIndex()) + ":" + std::to_string(window.List1.ListIndex()); }
    std::string Find() {
        form.ComFind.Click();
        return At();
    }
};

TEST_F(Search, GoesThroughAllDocumentsAndEnds) {
    Open(kSearchUrls);
    EXPECT_EQ(form.Caption(), "Search For URL");
    EXPECT_TRUE(form.Topmost());
    EXPECT_EQ(state.SearchFormOpen, kSet);
    EXPECT_EQ(form.Place().left, window.Place().left + static_cast<int>(form.Place().width / 1.3));
    EXPECT_EQ(form.Place().top, window.Place().top + 300);
    form.TextFind.SetText("alpha");
    EXPECT_EQ(Find(), "0:0");
    EXPECT_EQ(form.ComFind.Caption(), "Find Next");
    EXPECT_EQ(Find(), "2:1");
    form.ComFind.Click();
    EXPECT_EQ(messages, std::vector<std::string>{"Finished Searching."});
    EXPECT_FALSE(form.Loaded());
    EXPECT_EQ(state.SearchFormOpen, kClear);
    EXPECT_EQ(state.SearchText, "alpha");
    Open(kSearchTexts);
    EXPECT_EQ(form.Caption(), "Search For Text");
    EXPECT_EQ(form.TextFind.Text(), "alpha");
    EXPECT_EQ(form.TextFind.Selected(), "alpha");
    EXPECT_EQ(form.ComFind.Caption(), "&Find");
}

TEST_F(Search, MayIgnoreTheCase) {
    Open(kSearchTexts);
    form.TextFind.SetText("APPLE");
    form.Check1.SetValue(1);
    EXPECT_EQ(Find(), "0:0");
    EXPECT_EQ(Find(), "0:2");
    EXPECT_EQ(Find(), "2:1");
    Find();
    EXPECT_EQ(messages.size(), 1u);
}

TEST_F(Search, RegardsTheCaseWheneverItIsOpenedAnew) {
    Open(kSearchTexts);
    form.Check1.SetValue(1);
    form.Close();
    Open(kSearchTexts);
    EXPECT_FALSE(form.Check1.Checked());
}

TEST_F(Search, BeginsInTheSelectedDocumentAndAnEmptyTextDoesNothing) {
    window.txtFileName.SetListIndex(2);
    Open(kSearchUrls);
    form.ComFind.Click();
    EXPECT_TRUE(form.Loaded());
    form.TextFind.SetText("beta");
    form.ComFind.Click();
    EXPECT_EQ(messages, std::vector<std::string>{"Finished Searching."});
    EXPECT_EQ(window.txtFileName.ListIndex(), 2);
}

TEST_F(Search, AMatchOnTheLastRowGoesOnInTheNextDocument) {
    Open(kSearchUrls);
    form.TextFind.SetText("Alphabet");
    EXPECT_EQ(Find(), "0:2");
    form.TextFind.SetText("gamma");
    EXPECT_EQ(Find(), "2:0");
}

TEST_F(Search, KeepsOffTheDocumentsOfARun) {
    Open(kSearchUrls);
    form.TextFind.SetText("gamma");
    window.txtFileName.SetEnabled(false);
    EXPECT_EQ(Find(), "0:0");
    EXPECT_EQ(beeps, 1);
}

TEST_F(Search, AsksForATextToSelectBy) {
    state.LastSelectionText = "last";
    state.SearchMode = kSelectOthers;
    user = [&] {
        EXPECT_EQ(form.Caption(), "Select Links That Do Not Contain:");
        EXPECT_EQ(form.ComFind.Caption(), "&Select");
        EXPECT_FALSE(form.Check1.Visible() || form.Label1.Visible());
        EXPECT_EQ(form.TextFind.Selected(), "last");
        form.TextFind.SetText(" red ");
        form.ComFind.Click();
    };
    windows.ShowModal(form);
    EXPECT_EQ(state.SelectionText, "red");
    EXPECT_EQ(state.LastSelectionText, "red");
    EXPECT_EQ(state.SearchCancelled, kClear);
    const std::function<void()> ways[] = {[&] {
                                              form.TextFind.SetText("  ");
                                              form.ComFind.Click();
                                          },
                                          [&] { form.ComCancel.Click(); }, [&] { form.Close(); }};
    for (const auto& way : ways) {
        state.SearchCancelled = kClear;
        user = way;
        windows.ShowModal(form);
        EXPECT_EQ(state.SearchCancelled, kSet);
        EXPECT_EQ(state.LastSelectionText, "red");
    }
}

struct Edit : CommandWorld {
    EditForm form{{window, session, rows}};
    Edit() {
        Document(1, {{"First", "http://h/a", "X", "404", ""}, {"Second", "http://h/b", "", "OK", "\\x\\b.htm"}, {"Third", "http://h/c", "", "", "  "}});
    }
};

TEST_F(Edit, StoresTheTrimmedTextsInTheRow) {
    const std::string before = files.files[Path(1)];
    user = [&] {
        EXPECT_EQ(form.TextLink.Text(), "First");
        EXPECT_FALSE(form.TextFile.Visible() || form.Label3.Visible());
        form.TextLink.SetText("  New ");
        form.TextURL.SetText(" http://h/new ");
        form.ComOkay.Click();
    };
    windows.ShowModal(form);
    EXPECT_TRUE(form.Okay());
    EXPECT_EQ(window.List1.Text(0), LinkRowText(1, "New", "http://h/new", "404"));
    EXPECT_TRUE(window.List1.Selected(0));
    EXPECT_EQ(files.files[Path(1)], before);
    store.SaveLinkList(1);
    EXPECT_EQ(files.files[Path(1)].substr(0, 19), "New\r\nhttp://h/new\r\n");
}

TEST_F(Edit, ShowsTheFileAndCloseChangesNothing) {
    window.List1.SetListIndex(1);
    user = [&] {
        EXPECT_TRUE(form.TextFile.Visible() && form.Label3.Visible());
        EXPECT_EQ(form.TextFile.Text(), "\\x\\b.htm");
        form.TextURL.SetText("x");
        form.ComCancel.Click();
    };
    windows.ShowModal(form);
    EXPECT_FALSE(form.Okay());
    EXPECT_EQ(session.Links.LinkUrls[2], "http://h/b");
}

struct Web : CommandWorld {
    WebCommands web{{window, session, settings, flags, programs, browser}};
    std::string Opened(void (WebCommands::*command)()) {
        programs.opened.clear();
        (web.*command)();
        return programs.opened.empty() ? "" : programs.opened[0];
    }
    // What stands behind the host.
    std::string Rest(void (WebCommands::*command)()) {
        const std::string address = Opened(command);
        EXPECT_EQ(address.substr(0, 7), "http://");
        return address.substr(address.find('/', 7));
    }
    Web() {
        Document(1, {{" two words ", " http://WWW.link.test/a b ", "", "", "\\x\\a b.htm"}});
        window.TextFileName.SetText("  http://www.doc.test:8080/p q ");
        session.DocumentPath = "\\x\\my d.htm";
    }
};

TEST_F(Web, ServicesGetTheirForms) {
    EXPECT_EQ(Rest(&WebCommands::MenuViewAlta_Click), "/cgi-bin/query?pg=q&what=web&kl=XX&q=link:http://www.doc.test:8080/p+q");
    EXPECT_EQ(Rest(&WebCommands::MenuViewExcite_Click), "/search.gw?trace=a&search=http://www.doc.test:8080/p+q");
    EXPECT_EQ(Rest(&WebCommands::MenuViewInfo_Click), "/Titles?qt=http://www.doc.test:8080/p+q&col=WW&sv=IS&lk=noframes&nh=10");
    EXPECT_EQ(Rest(&WebCommands::MenuViewWhois_Click), "/cgi-bin/whois/whois?STRING=doc.test&x=43&y=7");
    EXPECT_EQ(Rest(&WebCommands::MenuLinkSearch1_Click), "/cgi-bin/query?pg=q&what=web&kl=XX&q=%22two+words%22");
    EXPECT_EQ(Rest(&WebCommands::MenuLinkSearch2_Click), "/search.gw?trace=a&search=two+words");
    EXPECT_EQ(Rest(&WebCommands::MenuLinkSearch3_Click), "/search?hl=en&q=two+words");
    EXPECT_EQ(Rest(&WebCommands::MenuLinkURL1_Click), "/cgi-bin/query?pg=q&what=web&kl=XX&q=link:http://WWW.link.test/a+b");
    EXPECT_EQ(Rest(&WebCommands::MenuLinkURL2_Click), "/search.gw?trace=a&search=http://WWW.link.test/a+b");
    EXPECT_EQ(Rest(&WebCommands::MenuLinkURL3_Click), "/search?hl=en&q=http://WWW.link.test/a+b");
    flags.HeaderBuffer = "old";
    EXPECT_EQ(Rest(&WebCommands::MenuLinkWhois_Click), "/cgi-bin/whois/whois?STRING=link.test&SearchType=do");
    EXPECT_EQ(flags.HeaderBuffer, "");
    EXPECT_NE(Opened(&WebCommands::MenuHelpHome_Click), "");
}

TEST_F(Web, TheBrowserGetsAddressesAndInLocalModeFiles) {
    window.txtFileName.SetText(0, "http://www.doc.test/");
    EXPECT_EQ(Opened(&WebCommands::MenuViewBrowser_Click), "http://www.doc.test/");
    EXPECT_EQ(Opened(&WebCommands::MenuLinkBrowser_Click), " http://WWW.link.test/a b ");
    settings.ProgramMode = kLocalMode;
    EXPECT_EQ(Opened(&WebCommands::MenuViewBrowser_Click), "file:///x/my%20d.htm");
    EXPECT_EQ(Opened(&WebCommands::MenuLinkBrowser_Click), "file:///x/a%20b.htm");
    session.Links.LinkPaths[1].clear();
    EXPECT_EQ(Opened(&WebCommands::MenuLinkBrowser_Click), " http://WWW.link.test/a b ");
}

TEST_F(Web, TheEditorGetsTheDocumentsFile) {
    settings.EditorPath = "\\my tools\\editor";
    web.MenuViewEditor_Click();
    EXPECT_EQ(programs.started, (std::vector<std::string>{"\\my tools\\editor", "/x/my d.htm"}));
}

TEST_F(Web, AShortTargetIsNoAddress) {
    browser.OpenInBrowser("abcd");
    EXPECT_EQ(messages, std::vector<std::string>{"Quorvantis can't communicate with your Browser.  Neither Netscape nor Internet "
                                                 "Explorer responded to a request to open."});
    settings.BrowserPath = "\\b";
    browser.OpenInBrowser("abcd");
    EXPECT_EQ(programs.started, (std::vector<std::string>{"\\b", "abcd"}));
    EXPECT_EQ(messages.size(), 1u);
}

TEST_F(Web, HelpPagesAreThoseOfTheProgramsFolderOrTheShippedOnes) {
    const Places places{.appPath = "\\home\\", .windowsFolder = "", .shippedFolder = "\\shipped\\"};
    Help help(files, programs, places);
    help.Show(HelpTopic::Contents);
    EXPECT_TRUE(programs.opened.empty());
    files.files["\\shipped\\help\\topic10.html"] = "x";
    help.Show(HelpTopic::Contents);
    files.files["\\home\\help\\topic10.html"] = "x";
    help.Show(HelpTopic::Contents);
    EXPECT_EQ(programs.opened, (std::vector<std::string>{"/shipped/help/topic10.html", "/home/help/topic10.html"}));
}

}  // namespace
}  // namespace qv
