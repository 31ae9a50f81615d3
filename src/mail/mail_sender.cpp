#include "mail/mail_sender.h"

#include "text/basic_text.h"

namespace qv {

void MailSender::ShowProgress(const std::string& text) {
    if (dialog != nullptr) dialog->ShowProgress(text);
    p_.loop.Yield();
}

void MailSender::SendMail(std::int16_t automatic, std::string& errorText) {
    p_.mainWindow.SetPointer(Pointer::Wait);
    errorText = Send(automatic == 0);
    if (!errorText.empty())
        for (const auto action : {SMTP1::Idle, SMTP1::Disconnect, SMTP1::Idle}) p_.smtp.SetAction(action);
    p_.mainWindow.SetPointer(Pointer::Default);
}

void MailSender::SetMessage(bool fromDialog) {
    p_.smtp.NetworkReady = true;
    p_.smtp.MailServer = p_.mail.MailServer;
    p_.smtp.SetAction(SMTP1::Reset);
    p_.smtp.From = p_.mail.MailFromName + " <" + p_.mail.MailFromAddress + ">";
    p_.smtp.SendTo = "<" + p_.mail.MailTo + ">";
    std::string& copies = p_.mail.MailCopyList;
    if (!copies.empty()) {
        copies.pop_back();
        const bool blind = !fromDialog || (dialog != nullptr && dialog->BlindCopies());
        (blind ? p_.smtp.BCc : p_.smtp.Cc) = copies;
    }
    p_.smtp.Subject = p_.mail.MailSubject;
}

FileResult MailSender::Encode() {
    p_.mime.Reset();
    p_.mime.Parts.push_back(
        {.PartText = p_.mail.MailBody, .PartContentType = "text/plain", .PartEncoding = PartEncodingCode::Text});
    for (const auto& path : p_.session.AttachmentPaths) p_.mime.Parts.push_back({.PartFile = path});
    p_.mime.MessageFile = p_.session.AppPath + "reports.tmp";
    p_.mime.OnProgress = [this](int percent) { ShowProgress("Encoding Attachments: " + std::to_string(percent) + "%"); };
    return p_.mime.EncodeToFile();
}

std::string MailSender::Encoded(const std::string& text) {
    p_.code.Format = NetCode1::Base64;
    p_.code.DecodedData = text;
    p_.code.Encode();
    std::string encoded = p_.code.EncodedData;
    if (EndsWith(encoded, "\r\n")) encoded.resize(encoded.size() - 2);
    return encoded;
}

void MailSender::LogIn() {
    if (p_.mail.MailAuthRequired != "Yes") return;
    p_.smtp.Command("AUTH LOGIN");
    p_.smtp.Command(Encoded(p_.mail.MailAuthName));
    p_.smtp.Command(Encoded(p_.mail.MailAuthPassword));
}

std::string MailSender::Send(bool fromDialog) {
    SetMessage(fromDialog);
    if (const FileResult encoded = Encode(); !encoded) return encoded.text;
    if (fromDialog) ShowProgress("Sending Mail, Please Wait...");
    p_.smtp.OtherHeaders = p_.mime.MessageHeaders();
    p_.smtp.MessageFile = p_.mime.MessageFile;
    p_.smtp.MessageText = p_.session.LineBreak;
    LogIn();
    if (std::string error = p_.smtp.SetAction(SMTP1::Send); !error.empty()) return error;
    return p_.smtp.SetAction(SMTP1::Disconnect);
}

void MailSender::SendReportsMail(std::int16_t& noRecipient, std::string& errorText) {
    MailSettings& mail = p_.mail;
    const auto& addresses = p_.settings.ReportAddresses;
    noRecipient = kClear;
    mail.MailCopyList.clear();
    if (addresses[0].empty()) {
        noRecipient = kSet;
    } else {
        mail.MailTo = addresses[0];
        for (const auto& address : {addresses[1], addresses[2]})
            if (!address.empty()) mail.MailCopyList += address + ",";
    }
    if (p_.settings.CopyMeOnReports != 0) {
        noRecipient = kClear;
        if (mail.MailTo.empty())
            mail.MailTo = mail.MailFromAddress;
        else
            mail.MailCopyList += mail.MailFromAddress + ",";
    }
    mail.MailSubject = "Zephon Quorvantis Link Check Report";
    mail.MailBody = p_.session.LineBreak + "Your Quorvantis Validation Reports are attached to this email." + p_.session.LineBreak +
                    p_.session.LineBreak;
    mail.MailIncludeComments = " 0";
    SendMail(1, errorText);
}

}  // namespace qv
