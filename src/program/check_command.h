// The command for terminals, scripts and builds: the same handlers, driven without a window.
#pragma once

#include <string>
#include <vector>

namespace qv {

struct CheckOptions {
    std::string address;
    bool site = false;           // the whole site, else the one document
    std::string local;           // the folder that mirrors the address; empty: the Internet
    std::string walk = "linked"; // of a local site: "linked", "folder" or "tree"
    bool resume = false;         // go on with a site that was stopped; needs a home
    std::string types;           // extensions of documents, parted by blanks; empty: the usual ones
    std::string ignoreOpen;      // path fragments of documents to leave out, parted by blanks
    std::string ignoreText;      // documents that hold this text are left out
    bool images = false;
    bool javascript = false;
    bool noRedirects = false;
    bool noFtp = false;
    std::string ignoreLinks;  // path fragments, parted by blanks
    double timeout = 60;      // seconds
    std::string userAgent;
    std::string proxy;  // HOST:PORT
    std::string user;   // NAME:PASSWORD
    std::string home;   // the folder of the session; empty: a scratch folder that is removed at the end
    bool listAll = false;
    std::vector<std::string> reports;  // forms to write behind the check: "text", "ascii", "html"
    std::string folder = ".";          // where to
    bool questionableOnly = false;     // only questionable links in them
};

inline constexpr int kExitNothingQuestionable = 0;
inline constexpr int kExitQuestionable = 1;
inline constexpr int kExitNotOpened = 2;  // also when a report couldn't be written
inline constexpr int kExitStopped = 3;
inline constexpr int kExitUsage = 64;

// Opens the address, checks its links and prints to standard output; progress and messages go to standard error. Gives the
// exit status. An interrupt of the terminal stops the run as the Stop button does.
int RunCheckCommand(const CheckOptions& options);

}  // namespace qv
