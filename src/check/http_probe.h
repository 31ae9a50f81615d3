// Asks one link over HTTP: HEAD by address first, GET by name on a retry, redirects followed, at most twelve passes.
#pragma once

#include <string>

#include "retrieve/http_session.h"

namespace qv {

// A link under check, and what its probe leaves for the judging.
struct LinkProbe {
    std::string url;  // the working address: a redirect's target once one was followed
    std::string replyText;
    HttpSession::Lookup lookup;
    double deadline = 0;  // seconds since midnight
    int retryCount = 0;
    int passCount = 0;
    bool redirectSeen = false;
    bool useGet = false;
    bool skipLeft = false;  // the Skip of an earlier link still stands: it ends the waits, not the exchange
};

class HttpProbe {
   public:
    HttpProbe(CheckForm& window, Settings& settings, RunFlags& flags, HTTP1& http, HttpSession& steps, EventLoop& loop)
        : window_(window), settings_(settings), flags_(flags), http_(http), steps_(steps), loop_(loop) {}

    void Run(LinkProbe& probe);

   private:
    void Pass(LinkProbe& probe);
    void AskHeedingPresses(LinkProbe& probe, const std::string& server);
    void Ask(LinkProbe& probe, const std::string& server);
    bool AnotherPass(LinkProbe& probe);
    void Redirect(LinkProbe& probe, const std::string& target);

    CheckForm& window_;
    Settings& settings_;
    RunFlags& flags_;
    HTTP1& http_;
    HttpSession& steps_;
    EventLoop& loop_;
};

}  // namespace qv
