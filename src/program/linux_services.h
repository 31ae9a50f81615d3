// The world as it is on Linux, in the event loop of whoever runs the program: everything that ProgramServices names.
#pragma once

#include <optional>
#include <string>

#include "platform/event_loop.h"
#include "platform/linux/crontab_scheduler.h"
#include "platform/linux/curl_ftp1.h"
#include "platform/linux/curl_http1.h"
#include "platform/linux/curl_smtp1.h"
#include "platform/linux/gmime_mime1.h"
#include "platform/linux/ini_settings_store.h"
#include "platform/linux/resolver_ip_info1.h"
#include "platform/linux/system_clock.h"
#include "platform/linux/system_files.h"
#include "platform/linux/system_programs.h"
#include "platform/linux/x11_windows.h"
#include "program/program.h"
#include "program/timer_driver.h"

namespace qv {

class LinuxServices {
   public:
    // `appPath` in the backslash form; empty: as the environment tells. The loop outlives the services.
    explicit LinuxServices(EventLoop& loop, const std::string& appPath = "");

    ProgramServices Services(std::string commandLine);
    EventLoop& Loop() { return loop_; }
    void LeaveOutPauses() { clock_.LeaveOutPauses(); }
    const Files& FileSystem() const { return files_; }

   private:
    EventLoop& loop_;
    SystemClock clock_;
    SystemFiles files_;
    RunFlags flags_;
    CurlHttp1 http_{loop_, flags_};
    CurlFtp1 ftp_{loop_, flags_};
    ResolverIpInfo1 ipInfo_{loop_, flags_};
    CurlSmtp1 smtp_{loop_};
    GmimeMime1 mime_{files_};
    GmimeNetCode1 code_;
    IniSettingsStore store_{files_, UserSettingsPath()};
    SystemPrograms programs_{files_};
    X11Windows others_;
    TimerDriver timers_{loop_};
    Places places_ = FindPlaces();
    std::optional<CrontabScheduler> scheduler_;
};

}  // namespace qv
