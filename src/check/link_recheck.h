// Asks the one current link, with no run around it.
#pragma once

#include <string>

#include "check/file_probe.h"
#include "check/ftp_probe.h"
#include "check/http_probe.h"
#include "check/row_status.h"
#include "mainwindow/window_rules.h"

namespace qv {

class LinkRecheck {
   public:
    struct Parts {
        CheckForm& window;
        WindowRules& rules;
        Session& session;
        const Settings& settings;
        RunFlags& flags;
        HTTP1& http;
        HttpSession& steps;
        HttpProbe& httpProbe;
        FtpProbe& ftpProbe;
        FileProbe& fileProbe;
        RowStatus& rows;
        EventLoop& loop;
    };
    explicit LinkRecheck(Parts parts) : p_(parts) {}

    // GoodLinks is neither asked nor told, and nothing is counted.
    void MenuLinkRecheck_Click();

   private:
    void Begin();
    void Check(int row);
    void Judge(int row, const LinkProbe& probe);
    void End();

    Parts p_;
};

}  // namespace qv
