#include "command_world.h"
#include "mainwindow/document_commands.h"

namespace qv {
namespace {

struct LinkOpen : CommandWorld {
    DocumentCommands commands{{window, rules, session, settings, flags, store, programs}};
    std::vector<std::string> opened;  // what stood in the address box when the open began

    LinkOpen() {
        commands.txtFileName_Click = [this] { Show(); };
        commands.ComOpen_Click = [this] {
            EXPECT_NE(session.WizardFromList, kClear);
            opened.push_back(window.TextFileName.Text());
        };
        Document(1, {{"page", "http://h/p.htm", "", "", "\\m\\p.htm"}, {"far", "http://far/", "", "", ""}, {"mail", "mailto:a@b.c", "", "", ""}});
    }
    void Open(int row) {
        window.List1.SetListIndex(row);
        commands.MenuLinkOpen_Click();
        EXPECT_EQ(session.WizardFromList, kClear);
    }
};

TEST_F(LinkOpen, TakesTheAddressAndInLocalModeTheFile) {
    Open(0);
    settings.ProgramMode = kLocalMode;
    Open(0);
    EXPECT_EQ(opened, (std::vector<std::string>{"http://h/p.htm", "\\m\\p.htm"}));
    EXPECT_TRUE(messages.empty());
}

TEST_F(LinkOpen, RefusesWhatIsNoPage) {
    Open(2);
    settings.ProgramMode = kLocalMode;
    Open(1);
    EXPECT_TRUE(opened.empty());
    EXPECT_EQ(messages, (std::vector<std::string>{"Sorry, mailto:a@b.c Is Not A Valid Web URL.",
                                                  "Sorry, can't open the remote link \r\nhttp://far/\r\n in Quorvantis Local Mode."}));
}

TEST_F(LinkOpen, WithoutARowDoesNothing) {
    window.List1.Clear();
    commands.MenuLinkOpen_Click();
    EXPECT_TRUE(opened.empty() && messages.empty());
}

}  // namespace
}  // namespace qv
