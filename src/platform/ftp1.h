// The FTP client: a session, and whether a file or a folder is there.
#pragma once

#include <functional>
#include <string>

namespace qv {

class FTP1 {
   public:
    enum ActionCode { Idle = 0, EndSession = 1, AskForFile = 3, LogOn = 8 };

    virtual ~FTP1() = default;

    std::string RemoteHost;  // may carry ":" and a port
    std::string RemoteFile;  // a path; one that ends in "/" is a folder and is listed
    std::string User;
    std::string Password;
    bool Passive = true;
    bool NetworkReady = false;
    double Timeout = 60;  // seconds without a byte after which the client gives up by itself, 15 more than this

    // LogOn and AskForFile return when their step has ended or failed; events, timers and the user are served meanwhile.
    // AskForFile asks for a file and, if the server refuses that, for a folder of that name. Without a session it fails at once.
    // Nothing is read: EndSession, which a handler of the two events calls, ends the step with success. From outside of them it
    // breaks a step off, which then fails with the text "interrupted". A failure goes to LastError: 25061 when the time was up,
    // another number else; one that is there already stays. A step while one runs is passed over. Idle ends the session with
    // what runs in it, as EndSession from outside does, and closes its connections.
    virtual void SetAction(ActionCode action) = 0;
    virtual void Refresh() {}

    std::function<void()> OnDirList;        // the first entry of a folder
    std::function<void()> OnStartTransfer;  // the server has accepted the transfer, also of nothing
};

}  // namespace qv
