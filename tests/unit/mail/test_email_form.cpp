#include "controls/user_actions.h"
#include "mail_world.h"

namespace qv {
namespace {

struct Emailer : MailWorld {
    void Settings(const std::string& to = "b@x", const std::string& comments = " 1") {
        files.files["\\home\\emailcfg.zdt"] =
            "server\r\nme@x\r\nMe\r\nThe subject\r\n" + to + "\r\n" + comments + "\r\nn\r\np\r\nNo\r\n\r\n\r\n";
    }
    void Book(const std::vector<std::string>& addresses) {
        AddressBook stored;
        for (const auto& address : addresses) stored.push_back({address, address});
        files.files["\\home\\addbook.zdt"] = ComposeAddressBook(stored);
    }
    std::vector<std::string> Stored() {
        std::vector<std::string> addresses;
        for (const auto& entry : ParseAddressBook(files.files["\\home\\addbook.zdt"])) addresses.push_back(entry.Address);
        return addresses;
    }
    void Open(const std::function<void(EmailForm&)>& work) {
        EmailForm form({windows, files, session, mail, book, flags, sender, loop});
        user = [&] {
            work(form);
            form.ComCancel.Click();
        };
        windows.ShowModal(form);
        EXPECT_EQ(sender.dialog, nullptr);
        EXPECT_EQ(flags.IgnoreControlEvents, kClear);
    }
    using Texts = std::vector<std::string>;
    static Texts Rows(const ListBox& list, bool selectedOnly = false) {
        Texts rows;
        for (int row = 0; row < list.Count(); ++row)
            if (!selectedOnly || list.Selected(row)) rows.push_back(list.Text(row));
        return rows;
    }
    Emailer() {
        Settings();
        Book({"a@x", "b@x", "c@x"});
        session.AttachmentNames = {"one_text.txt ", "two_html.htm", "three_ascii.txt"};
        session.AttachmentPaths = {"\\1", "\\2", "\\3"};
    }
};

TEST_F(Emailer, ShowsWhatIsStored) {
    mail.MailBody = "the last text";
    Open([&](EmailForm& form) {
        EXPECT_EQ(form.TextTo.Text(), "b@x");
        EXPECT_EQ(form.TextTo.ListIndex(), 1);
        EXPECT_EQ(form.TextTo.Count(), 3);
        EXPECT_EQ(form.Subject.Text(), "The subject");
        EXPECT_EQ(form.Body.Text(), "the last text");
        EXPECT_EQ(form.CheckComments.Value(), 1);
        EXPECT_EQ(Rows(form.ListCC), (Texts{"a@x", "b@x", "c@x"}));
        EXPECT_EQ(Rows(form.List1), (Texts{"one_text.txt", "two_html.htm", "three_ascii.txt"}));
        EXPECT_TRUE(form.Subject.HasFocus());
        EXPECT_EQ(form.Subject.Selected(), "The subject");
        EXPECT_EQ(form.AddressName() + form.Subject.AddressName() + form.Body.AddressName(), "EmailFormText(3)Text(4)");
        EXPECT_FALSE(form.FrameProgress.Visible());
        form.Body.SetFocus();
        EXPECT_EQ(form.Body.Selected(), "the last text");
        windows.Activate(form);  // only the first time takes the focus
        EXPECT_TRUE(form.Body.HasFocus());
    });
    EXPECT_TRUE(files.writes.empty());
}

TEST_F(Emailer, ARecipientThatIsNotInTheBookIsNoItem) {
    Settings("B@x", "");
    Open([&](EmailForm& form) {
        EXPECT_EQ(form.TextTo.Text(), "B@x");
        EXPECT_EQ(form.TextTo.ListIndex(), -1);
        EXPECT_EQ(form.CheckComments.Value(), 0);
    });
}

TEST_F(Emailer, WithoutFilesItIsEmpty) {
    files.files.clear();
    session.AttachmentNames.clear();
    Open([&](EmailForm& form) {
        EXPECT_EQ(form.TextTo.Text() + form.Subject.Text(), "");
        EXPECT_EQ(form.TextTo.Count() + form.ListCC.Count() + form.List1.Count(), 0);
    });
}

TEST_F(Emailer, AddsTheRecipientToTheBookOnce) {
    Open([&](EmailForm& form) {
        form.TextTo.EnterText("  ");
        form.ComAdd.Click();
        EXPECT_EQ(messages, Texts{"Invalid Email Address for Recipient."});
        EXPECT_TRUE(form.TextTo.HasFocus());
        form.TextTo.EnterText(" aa@x ");
        form.ComAdd.Click();
        form.ComAdd.Click();
        EXPECT_EQ(Rows(form.ListCC), (Texts{"a@x", "b@x", "c@x", "aa@x"}));  // in order at the next load only
        EXPECT_EQ(form.TextTo.Count(), 4);
        EXPECT_EQ(form.TextTo.Text(), " aa@x ");
        EXPECT_EQ(Stored(), (Texts{"a@x", "aa@x", "b@x", "c@x"}));
        form.TextTo.EnterText("A@x");
        form.ComAdd.Click();
        EXPECT_EQ(book.size(), 5u);
    });
    EXPECT_EQ(files.writes.size(), 2u);
}

TEST_F(Emailer, RefusesToSendWithoutSubjectOrRecipient) {
    Open([&](EmailForm& form) {
        form.Subject.SetText("  ");
        form.TextTo.SetText(" ");
        form.ComSend.Click();
        EXPECT_EQ(messages, Texts{"Invalid Subject Line."});
        EXPECT_TRUE(form.Subject.HasFocus());
        form.Subject.SetText("s");
        form.ComSend.Click();
        EXPECT_EQ(messages.back(), "Invalid Email Address for Recipient.");
        EXPECT_TRUE(form.TextTo.HasFocus());
        EXPECT_TRUE(form.Loaded());
    });
    EXPECT_TRUE(smtp.actions.empty());
    EXPECT_TRUE(files.writes.empty());
}

TEST_F(Emailer, SendsAndKeepsTheValues) {
    Open([&](EmailForm& form) {
        form.TextTo.EnterText(" new@x ");
        form.Subject.SetText(" A subject ");
        form.Body.SetText(" line 1\r\nline 2 ");
        form.CheckComments.SetValue(0);
        form.ListCC.ClickRow(2);
        form.ListCC.ClickRow(0);
        smtp.OnSend = [&] {
            EXPECT_FALSE(form.Enabled());
            EXPECT_TRUE(form.FrameProgress.Visible());
            EXPECT_EQ(form.LabelProgess.Caption(), "Sending Mail, Please Wait...");
            EXPECT_EQ(form.Pointer(), Pointer::Wait);
            form.Close();  // the close box, meanwhile
            EXPECT_TRUE(form.Loaded());
        };
        form.ComSend.Click();
        EXPECT_FALSE(form.Loaded());
    });
    EXPECT_EQ(smtp.SendTo, "<new@x>");
    EXPECT_EQ(smtp.Subject, "A subject");
    // The new address is in the book by now, and a row stands for the place.
    EXPECT_EQ(smtp.Cc, "a@x,c@x");
    EXPECT_EQ(mime.Parts[0].PartText, "line 1\r\nline 2\r\n\r\n");
    EXPECT_EQ(mime.Parts.size(), 4u);
    EXPECT_EQ(mail.MailBody, "line 1\r\nline 2");
    EXPECT_EQ(files.files["\\home\\emailcfg.zdt"], "server\r\nme@x\r\nMe\r\nA subject\r\nnew@x\r\n 0\r\nn\r\np\r\nNo\r\n\r\n\r\n");
    EXPECT_EQ(Stored(), (Texts{"a@x", "b@x", "c@x", "new@x"}));
}

TEST_F(Emailer, ABlindCopyIsByTheBox) {
    Open([&](EmailForm& form) {
        form.CheckBCC.SetValue(1);
        form.ListCC.ClickRow(0);
        form.ComSend.Click();
    });
    EXPECT_EQ(smtp.BCc, "a@x");
    EXPECT_EQ(smtp.Cc, "");
}

TEST_F(Emailer, CopiesGoByThePlaceInTheBook) {
    Book({"b@x", "c@x"});
    Open([&](EmailForm& form) {
        form.TextTo.EnterText("a@x");
        form.ComAdd.Click();  // the list is b, c, a and the book a, b, c
        form.TextTo.EnterText("z@x");
        form.ListCC.ClickRow(0);
        form.ComSend.Click();
    });
    EXPECT_EQ(smtp.Cc, "a@x");
}

TEST_F(Emailer, AFailedSendClosesWithoutAWord) {
    smtp.error = "refused";
    Open([&](EmailForm& form) {
        form.ComSend.Click();
        EXPECT_FALSE(form.Loaded());
    });
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(mail.MailBody, "");
}

TEST_F(Emailer, TheTwoListsTakeTheSelectionFromEachOther) {
    Open([&](EmailForm& form) {
        form.List1.ClickRow(0);
        form.List1.ClickRow(1);
        form.ListCC.ClickRow(0);
        EXPECT_EQ(form.List1.ListIndex(), -1);
        EXPECT_EQ(Rows(form.List1, true), Texts{});
        EXPECT_EQ(Rows(form.ListCC, true), Texts{"a@x"});
        form.ListCC.ClickRow(2);
        form.List1.ClickRow(2);
        EXPECT_EQ(form.ListCC.ListIndex(), -1);
        EXPECT_EQ(Rows(form.ListCC, true), Texts{});
        EXPECT_EQ(Rows(form.List1, true), Texts{"three_ascii.txt"});
    });
}

TEST_F(Emailer, TheRecipientCannotBeHisOwnCopy) {
    Book({"a@x", "b@x", "b@x"});
    Open([&](EmailForm& form) {
        form.ListCC.ClickRow(1);
        EXPECT_EQ(Rows(form.ListCC, true), Texts{});
        form.ListCC.SetSelected(1, true);
        form.ListCC.ClickRow(2);  // the first one found only
        EXPECT_FALSE(form.ListCC.Selected(1));
        EXPECT_TRUE(form.ListCC.Selected(2));
    });
}

TEST_F(Emailer, AHandlerKeepsQuietWhileItIsToldTo) {
    Open([&](EmailForm& form) {
        flags.IgnoreControlEvents = kSet;
        form.List1.ClickRow(0);
        form.ListCC.ClickRow(1);
        EXPECT_EQ(Rows(form.ListCC, true), Texts{"b@x"});
        EXPECT_EQ(Rows(form.List1, true), Texts{"one_text.txt"});
        flags.IgnoreControlEvents = kClear;
    });
}

TEST_F(Emailer, PickingARecipientClearsTheCurrentCopy) {
    Open([&](EmailForm& form) {
        form.ListCC.ClickRow(2);
        form.TextTo.ClickItem(0);
        EXPECT_EQ(form.ListCC.ListIndex(), -1);
        EXPECT_EQ(Rows(form.ListCC, true), Texts{"c@x"});
    });
}

TEST_F(Emailer, DeleteTakesAddressesOutOfTheBook) {
    Open([&](EmailForm& form) {
        form.ListCC.ClickRow(0);
        form.ListCC.ClickRow(2);
        user::Press(form.Body, Key::Delete);  // wherever the focus is
        EXPECT_EQ(Rows(form.ListCC), Texts{"b@x"});
        EXPECT_EQ(Stored(), Texts{"b@x"});
        EXPECT_EQ(form.TextTo.Count(), 3);
        form.TextTo.SetText("");
        form.ListCC.ClickRow(0);
        user::Press(form.ListCC, Key::Delete);  // the only one stays
        EXPECT_EQ(Stored(), Texts{"b@x"});
        EXPECT_EQ(beeps, 0);
    });
}

TEST_F(Emailer, DeleteOfAllBeepsAndFillsTheListAnew) {
    Open([&](EmailForm& form) {
        form.TextTo.SetText("");
        for (int row = 0; row < 3; ++row) form.ListCC.ClickRow(row);
        user::Press(form.ListCC, Key::Delete);
        EXPECT_EQ(beeps, 1);
        EXPECT_EQ(Rows(form.ListCC), (Texts{"a@x", "b@x", "c@x"}));
        EXPECT_EQ(Rows(form.ListCC, true), Texts{});
        EXPECT_EQ(form.ListCC.ListIndex(), -1);
    });
    EXPECT_TRUE(files.writes.empty());
}

TEST_F(Emailer, DeleteTakesReportsOffTheListOnly) {
    Open([&](EmailForm& form) {
        user::Press(form.List1, Key::Delete);  // no current row
        EXPECT_EQ(form.List1.Count(), 3);
        form.List1.ClickRow(1);
        user::Press(form.List1, Key::Delete);
        EXPECT_EQ(Rows(form.List1), (Texts{"one_text.txt", "three_ascii.txt"}));
        form.List1.ClickRow(0);
        form.List1.ClickRow(1);
        user::Press(form.List1, Key::Delete);
        EXPECT_EQ(beeps, 1);
        EXPECT_EQ(form.List1.Count(), 2);
        form.ComSend.Click();
    });
    EXPECT_EQ(mime.Parts.size(), 4u);
}

TEST_F(Emailer, OtherKeysDeleteNothing) {
    Open([&](EmailForm& form) {
        form.ListCC.ClickRow(0);
        user::Press(form.ListCC, Key::Character);
        EXPECT_EQ(form.ListCC.Count(), 3);
    });
}

}  // namespace
}  // namespace qv
