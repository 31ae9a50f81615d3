// The mail client: one message at a time, to one server.
#pragma once

#include <string>
#include <vector>

namespace qv {

class SMTP1 {
   public:
    enum ActionCode { Idle = 0, Disconnect = 2, Send = 3, Reset = 4 };

    // What an action left: empty on success, else what went wrong in words for the user.
    using ErrorText = std::string;

    virtual ~SMTP1() = default;

    bool NetworkReady = false;
    std::string MailServer;    // name or address, with ":" and a port if it isn't 25; on 465 TLS begins at once, on any other it
                               // begins when the server offers it
    std::string From;          // "Name <address>"
    std::string SendTo;        // "<address>": one recipient
    std::string Cc, BCc;       // addresses parted by commas; those of BCc are told to the server only
    std::string Subject;
    std::string OtherHeaders;  // whole lines
    std::string MessageText;   // stands in front of the file's contents
    std::string MessageFile;   // in the backslash form
    double Timeout = 60;       // seconds without a byte on either way after which the client gives up

    // A line for the server ahead of the message: the three of "AUTH LOGIN" (that, and name and password in base64) log in.
    void Command(const std::string& line) { commands_.push_back(line); }

    // Reset clears the message and the commands. Send connects, sends and closes the connection; it returns when the server has
    // taken the message or something has failed, and events are handled meanwhile. A Send while one runs fails. Disconnect and Idle
    // break a running one off. No character of a value can add a header line or a recipient.
    virtual ErrorText SetAction(ActionCode action) = 0;

   protected:
    void Clear() {
        for (std::string* text : {&From, &SendTo, &Cc, &BCc, &Subject, &OtherHeaders, &MessageText, &MessageFile}) text->clear();
        commands_.clear();
    }
    std::vector<std::string> commands_;
};

}  // namespace qv
