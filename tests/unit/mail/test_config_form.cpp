#include "mail/config_form.h"

#include "mail_world.h"

namespace qv {
namespace {

struct MailWizard : MailWorld {
    ConfigForm form{windows, files, session, mail};
    std::string Finish(const std::string& name, const std::string& password) {
        windows.Show(form);
        form.TextMailServer.SetText(" h ");
        form.TextFromEmail.SetText("a@b.c");
        form.TextFromName.SetText("Me");
        form.CheckAuth.SetValue(1);
        form.TextAuthName.SetText(name);
        form.TextAuthPassword.SetText(password);
        form.ComFinish.Click();
        return messages.empty() ? "" : messages.back();
    }
};

TEST_F(MailWizard, ALogInWithoutANameOrAPasswordIsNotWritten) {
    EXPECT_EQ(Finish(" ", "word"), "Invalid Authentication User Name.");
    EXPECT_EQ(Finish("me", " "), "Invalid Authentication Password.");
    EXPECT_TRUE(files.writes.empty());
    EXPECT_TRUE(windows.Forms().empty());  // it closes in any case
}

TEST_F(MailWizard, ALogInIsWrittenWithTheRest) {
    EXPECT_EQ(Finish(" me ", " word "), "");
    EXPECT_EQ(files.writes, std::vector<std::string>{"\\home\\emailcfg.zdt"});
    EXPECT_EQ(mail.MailAuthRequired, "Yes");
    EXPECT_EQ(mail.MailAuthName + ":" + mail.MailAuthPassword + "@" + mail.MailServer, "me:word@h");
}

TEST_F(MailWizard, BackAndNextStayWithinThePages) {
    windows.Show(form);
    form.ComBack.Click();
    EXPECT_TRUE(form.Page0.Visible());
    form.ComNext.Click();
    EXPECT_TRUE(form.Page1.Visible() && !form.Page0.Visible());
    EXPECT_FALSE(form.ComNext.Enabled());  // nothing is entered
    form.ComBack.Click();
    EXPECT_TRUE(form.Page0.Visible() && !form.Page1.Visible());
}

}  // namespace
}  // namespace qv
