// Asks one link over FTP: a log-on, and the first sign of the file or the folder.
#pragma once

#include <string>

#include "check/http_probe.h"
#include "platform/ftp1.h"

namespace qv {

class FtpProbe {
   public:
    FtpProbe(const Settings& settings, RunFlags& flags, HTTP1& http, FTP1& ftp, HttpSession& steps);

    // A run asks as an anonymous guest, and its watchdog can break the session off. A single recheck asks with the name and
    // the password of the settings.
    enum class Kind { Run, Recheck };
    void Run(LinkProbe& probe, Kind kind);

   private:
    void SetTarget(const LinkProbe& probe, Kind kind);

    const Settings& settings_;
    RunFlags& flags_;
    HTTP1& http_;
    FTP1& ftp_;
    HttpSession& steps_;
};

}  // namespace qv
