// Looks for the file that a link of a local document leads to.
#pragma once

#include <string>

#include "check/http_probe.h"
#include "platform/files.h"

namespace qv {

class FileProbe {
   public:
    FileProbe(const Settings& settings, RunFlags& flags, HTTP1& http, HttpSession& steps, const Files& files)
        : settings_(settings), flags_(flags), http_(http), steps_(steps), files_(files) {}

    enum class Path { Decoded, AsItStands };
    // `path` is the file's; a decoded one has its percent codes replaced, and the address its host repaired.
    void Run(LinkProbe& probe, const std::string& path, Path kind);

   private:
    const Settings& settings_;
    RunFlags& flags_;
    HTTP1& http_;
    HttpSession& steps_;
    const Files& files_;
};

}  // namespace qv
