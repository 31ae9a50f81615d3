#include "mail_world.h"

namespace qv {
namespace {

struct Sender : MailWorld {
    std::string error = "left over";
    Sender() {
        mail.MailServer = "mail.h.test:2525";
        mail.MailFromName = "Web Author";
        mail.MailFromAddress = "me@h.test";
        mail.MailTo = "you@h.test";
        mail.MailSubject = "A subject";
        mail.MailBody = "A text";
    }
};

TEST_F(Sender, GivesTheMessageToTheServices) {
    session.AttachmentPaths = {"\\r\\a_text.txt", "\\r\\b_html.htm"};
    smtp.OnSend = [&] { EXPECT_EQ(window.Pointer(), Pointer::Wait); };
    sender.SendMail(1, error);
    EXPECT_EQ(error, "");
    EXPECT_TRUE(smtp.NetworkReady);
    EXPECT_EQ(smtp.MailServer, "mail.h.test:2525");
    EXPECT_EQ(smtp.From, "Web Author <me@h.test>");
    EXPECT_EQ(smtp.SendTo, "<you@h.test>");
    EXPECT_EQ(smtp.Cc + smtp.BCc, "");
    EXPECT_EQ(smtp.Subject, "A subject");
    EXPECT_EQ(smtp.OtherHeaders, "MIME-Version: 1.0\r\n");
    EXPECT_EQ(smtp.MessageText, "\r\n");
    EXPECT_EQ(smtp.MessageFile, "\\home\\reports.tmp");
    EXPECT_TRUE(smtp.lines.empty());
    EXPECT_EQ(smtp.actions, (std::vector<SMTP1::ActionCode>{SMTP1::Reset, SMTP1::Send, SMTP1::Disconnect}));
    ASSERT_EQ(mime.Parts.size(), 3u);
    EXPECT_EQ(mime.Parts[0].PartText, "A text");
    EXPECT_EQ(mime.Parts[0].PartContentType, "text/plain");
    EXPECT_EQ(mime.Parts[0].PartEncoding, PartEncodingCode::Text);
    EXPECT_EQ(mime.Parts[1].PartFile, "\\r\\a_text.txt");
    EXPECT_EQ(mime.Parts[2].PartFile, "\\r\\b_html.htm");
    EXPECT_EQ(mime.MessageFile, "\\home\\reports.tmp");
    EXPECT_EQ(window.Pointer(), Pointer::Default);
}

TEST_F(Sender, WithoutAttachmentsThereIsTheTextAlone) {
    sender.SendMail(1, error);
    EXPECT_EQ(mime.Parts.size(), 1u);
    sender.SendMail(1, error);
    EXPECT_EQ(mime.Parts.size(), 1u);
}

TEST_F(Sender, AnEmptyNameLeavesABlank) {
    mail.MailFromName.clear();
    sender.SendMail(1, error);
    EXPECT_EQ(smtp.From, " <me@h.test>");
}

struct Dialog : MailDialog {
    bool blind = false;
    std::vector<std::string> texts;
    bool BlindCopies() const override { return blind; }
    void ShowProgress(const std::string& text) override { texts.push_back(text); }
};

TEST_F(Sender, CopiesAreBlindWithoutADialogAndByItsBoxWithOne) {
    Dialog dialog;
    sender.dialog = &dialog;
    mail.MailCopyList = "a@h,b@h,";
    sender.SendMail(0, error);
    EXPECT_EQ(smtp.Cc, "a@h,b@h");
    EXPECT_EQ(smtp.BCc, "");
    dialog.blind = true;
    mail.MailCopyList = "c@h,";
    sender.SendMail(0, error);
    EXPECT_EQ(smtp.BCc, "c@h");
    EXPECT_EQ(smtp.Cc, "");
    dialog.blind = false;
    mail.MailCopyList = "d@h,";
    sender.SendMail(1, error);
    EXPECT_EQ(smtp.BCc, "d@h");
    EXPECT_EQ(smtp.Cc, "");
    mail.MailCopyList.clear();
    sender.SendMail(0, error);  // nothing is left of the copies before
    EXPECT_EQ(smtp.Cc + smtp.BCc, "");
}

TEST_F(Sender, TellsADialogOfItsProgress) {
    Dialog dialog;
    sender.dialog = &dialog;
    int turns = 0;
    loop.Post([&] { ++turns; });
    sender.SendMail(0, error);
    EXPECT_EQ(dialog.texts, (std::vector<std::string>{"Encoding Attachments: 0%", "Encoding Attachments: 50%",
                                                      "Encoding Attachments: 100%", "Sending Mail, Please Wait..."}));
    EXPECT_EQ(turns, 1);
    dialog.texts.clear();
    sender.SendMail(1, error);
    EXPECT_EQ(dialog.texts.back(), "Encoding Attachments: 100%");
    sender.dialog = nullptr;
    sender.SendMail(1, error);
    EXPECT_EQ(error, "");
}

TEST_F(Sender, LogsInWhenItIsRequired) {
    mail.MailAuthName = "web author";
    mail.MailAuthPassword = "p";
    for (const char* off : {"No", "yes", "YES", "", " Yes"}) {
        mail.MailAuthRequired = off;
        sender.SendMail(1, error);
        EXPECT_TRUE(smtp.lines.empty()) << off;
    }
    mail.MailAuthRequired = "Yes";
    sender.SendMail(1, error);
    EXPECT_EQ(smtp.lines, (std::vector<std::string>{"AUTH LOGIN", "<web author>", "<p>"}));
}

TEST_F(Sender, AFailureIsToldAndTheConnectionClosed) {
    smtp.error = "refused";
    sender.SendMail(1, error);
    EXPECT_EQ(error, "refused");
    EXPECT_EQ(smtp.actions, (std::vector<SMTP1::ActionCode>{SMTP1::Reset, SMTP1::Send, SMTP1::Idle, SMTP1::Disconnect, SMTP1::Idle}));
    EXPECT_EQ(window.Pointer(), Pointer::Default);
}

TEST_F(Sender, WhatCannotBeEncodedIsNotSent) {
    mime.result = {false, "a: No such file or directory"};
    sender.SendMail(1, error);
    EXPECT_EQ(error, "a: No such file or directory");
    EXPECT_EQ(smtp.actions, (std::vector<SMTP1::ActionCode>{SMTP1::Reset, SMTP1::Idle, SMTP1::Disconnect, SMTP1::Idle}));
}

struct ReportsMail : Sender {
    std::int16_t noRecipient = 7;
    void Send() { sender.SendReportsMail(noRecipient, error); }
};

TEST_F(ReportsMail, GoesToTheAddressesOfTheEntry) {
    settings.ReportAddresses = {"one@h", "", "three@h"};
    mail.MailCopyList = "old@h,";
    mail.MailIncludeComments = " 1";
    Send();
    EXPECT_EQ(noRecipient, kClear);
    EXPECT_EQ(smtp.SendTo, "<one@h>");
    EXPECT_EQ(smtp.BCc, "three@h");
    EXPECT_EQ(smtp.Subject, "Zephon Quorvantis Link Check Report");
    EXPECT_EQ(mime.Parts[0].PartText, "\r\nYour Quorvantis Validation Reports are attached to this email.\r\n\r\n");
    EXPECT_EQ(mail.MailIncludeComments, " 0");
}

TEST_F(ReportsMail, TheSenderGetsACopy) {
    settings.ReportAddresses = {"one@h", "two@h", "three@h"};
    settings.CopyMeOnReports = kSet;
    Send();
    EXPECT_EQ(smtp.BCc, "two@h,three@h,me@h.test");
    settings.ReportAddresses = {"", "two@h", ""};
    mail.MailTo.clear();
    Send();
    EXPECT_EQ(noRecipient, kClear);
    EXPECT_EQ(smtp.SendTo, "<me@h.test>");
    EXPECT_EQ(smtp.BCc, "");
}

TEST_F(ReportsMail, WithoutARecipientItStillGoesToTheLastOne) {
    settings.ReportAddresses = {"", "two@h", "three@h"};
    Send();
    EXPECT_EQ(noRecipient, kSet);
    EXPECT_EQ(smtp.SendTo, "<you@h.test>");
    EXPECT_EQ(smtp.BCc, "");
    settings.CopyMeOnReports = kSet;
    Send();
    EXPECT_EQ(noRecipient, kClear);
    EXPECT_EQ(smtp.BCc, "me@h.test");
}

TEST(AddressBookTest, SortsByTheAddressInLowerCase) {
    AddressBook sorted = {{"d@x", "d@x"}, {"B@x", "B@x"}, {"a@x", "a@x"}, {"E@x", "E@x"}, {"c@x", "c@x"}, {"Al@x", "Al@x"}, {"Z@x", "Z@x"}};
    SortAddressBook(sorted);
    std::string order;
    for (const auto& entry : sorted) order += entry.Address + " ";
    EXPECT_EQ(order, "a@x Al@x B@x c@x d@x E@x Z@x ");
    for (std::size_t count : {0u, 1u, 2u, 3u}) {
        AddressBook small;
        for (std::size_t i = count; i > 0; --i) small.push_back({std::to_string(i), std::to_string(i)});
        SortAddressBook(small);
        for (std::size_t i = 0; i < count; ++i) EXPECT_EQ(small[i].Address, std::to_string(i + 1));
    }
}

TEST(AddressBookTest, IsNineLinesAnEntry) {
    FakeFiles files;
    AddressBook known = {{"b@x", "b@x"}, {"a@x", "a@x"}};
    ExchangeAddressBook(files, "\\home\\", known, 0);
    const std::string blank = "\r\n\r\n\r\n\r\n\r\n\r\n\r\n";
    EXPECT_EQ(files.files["\\home\\addbook.zdt"], "a@x\r\na@x\r\n" + blank + "b@x\r\nb@x\r\n" + blank);
    AddressBook read = {{"old", "old"}};
    ExchangeAddressBook(files, "\\home\\", read, 1);
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[1].Address, "b@x");
    files.files["\\home\\addbook.zdt"] = "short@x\r\n";
    ExchangeAddressBook(files, "\\home\\", read, -1);
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0].Address, "short@x");
    files.files.clear();
    ExchangeAddressBook(files, "\\home\\", read, 1);  // no file leaves the book
    EXPECT_EQ(read.size(), 1u);
}

}  // namespace
}  // namespace qv
