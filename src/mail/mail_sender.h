// Sends one message with files attached.
#pragma once

#include <cstdint>
#include <string>

#include "controls/form.h"
#include "platform/event_loop.h"
#include "platform/mime1.h"
#include "platform/net_code1.h"
#include "platform/smtp1.h"
#include "session/session.h"

namespace qv {

// The dialog behind a send, as far as the sender needs it.
class MailDialog {
   public:
    virtual ~MailDialog() = default;
    virtual bool BlindCopies() const = 0;
    virtual void ShowProgress(const std::string& text) = 0;
};

class MailSender {
   public:
    struct Parts {
        Form& mainWindow;
        const Session& session;  // with the attachments
        const Settings& settings;
        MailSettings& mail;
        SMTP1& smtp;
        MIME1& mime;
        NetCode1& code;
        EventLoop& loop;
    };
    explicit MailSender(Parts parts) : p_(parts) {}

    // Sends the message that the mail values tell, with the session's attachments. `automatic` 0: from the dialog; any other value:
    // without one, and the copies are blind ones. `errorText` is empty on success; nothing is tried again. Blocks while events are
    // handled. What was encoded stays in reports.tmp.
    void SendMail(std::int16_t automatic, std::string& errorText);

    // The mail of the automatic reports to the addresses of the open entry. `noRecipient` tells that there is none among them; the
    // mail goes then to whom the last one went.
    void SendReportsMail(std::int16_t& noRecipient, std::string& errorText);

    MailDialog* dialog = nullptr;  // null while it isn't open

   private:
    std::string Send(bool fromDialog);
    void SetMessage(bool fromDialog);
    FileResult Encode();
    void LogIn();
    std::string Encoded(const std::string& text);
    void ShowProgress(const std::string& text);

    Parts p_;
};

}  // namespace qv
