// The mail's handlers over services that keep what they are given.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "controls/window_system.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_files.h"
#include "fakes/fake_loop.h"
#include "mail/email_form.h"
#include "mail/mail_sender.h"

namespace qv {

class FakeSmtp1 : public SMTP1 {
   public:
    ErrorText SetAction(ActionCode action) override {
        if (action == Reset) Clear();
        actions.push_back(action);
        if (action != Send) return "";
        lines = commands_;
        if (OnSend) OnSend();
        return error;
    }
    std::vector<ActionCode> actions;
    std::vector<std::string> lines;
    std::string error;
    std::function<void()> OnSend;
};

class FakeMime1 : public MIME1 {
   public:
    FileResult EncodeToFile() override {
        for (const int percent : {0, 50, 100})
            if (OnProgress) OnProgress(percent);
        MessageHeaders_ = "MIME-Version: 1.0\r\n";
        return result;
    }
    FileResult result;
};

class FakeNetCode1 : public NetCode1 {
   public:
    void Encode() override { EncodedData = "<" + DecodedData + ">\r\n"; }
};

struct MailWorld : testing::Test, WindowListener {
    FakeClock clock;
    FakeLoop loop{clock};
    FakeFiles files;
    RunFlags flags;
    Session session;
    Settings settings;
    MailSettings mail;
    AddressBook book;
    FakeSmtp1 smtp;
    FakeMime1 mime;
    FakeNetCode1 code;
    WindowSystem windows{[this] {
        if (user && !windows.Forms().empty()) user();
    }};
    Form window{windows, "CheckForm", ""};
    MailSender sender{{window, session, settings, mail, smtp, mime, code, loop}};
    std::vector<std::string> messages;
    int beeps = 0;
    std::function<void()> user;

    MailWorld() {
        session.AppPath = "\\home\\";
        windows.Listen(this);
    }
    void FormShown(Form&) override {}
    void FormClosed(const Form&) override {}
    void MessageShown(const MessageRequest& request) override {
        messages.push_back(request.text);
        windows.Answer("OK");
    }
    void DialogShown(const FileDialogRequest&) override {}
    void Beeped() override { ++beeps; }
};

}  // namespace qv
