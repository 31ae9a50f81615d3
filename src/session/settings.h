// The settings in force: what the entry of the open site or document says, and what holds for the whole program.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "session/flags.h"

namespace qv {

enum ProgramModeValue : std::int16_t { kInternetMode = 0, kLocalMode = 1, kBookmarksMode = 2 };

// From the record of the open entry, or from the preferences. Texts are trimmed.
struct EntrySettings {
    Flag IncludeImages = 1;
    Flag IgnoreJavaScript = 1;  // 1 as the defaults store it; only -1 makes the lines inside a script block be skipped
    Flag FollowRedirects = 1;
    Flag CheckFtpLinks = 1;
    std::string DocumentTypes;  // these three: trimmed, with one blank put at each end
    std::string IgnoreOpenPaths;
    std::string IgnoreLinkPaths;
    std::vector<std::string> IgnoreOpenPathList;  // the parts of the lists; an empty part is contained in every address
    std::vector<std::string> IgnoreLinkPathList;
    std::vector<std::string> IgnoreTextList;
    float HttpTimeout = 60;  // seconds
    float FtpTimeout = 60;   // seconds
    Flag UseProxy = 0;
    std::string ProxyServerName;
    std::string ProxyPortText;
    Flag UseProxyAuthentication = 0;
    std::string ProxyUserName;
    std::string ProxyPassword;
    Flag UseHttpAuthentication = 0;
    std::string HttpUserName;
    std::string HttpPassword;
    std::string FtpUserName;
    std::string FtpPassword;
    std::string UserAgent;
    std::int16_t SiteOpenMode = 0;
    Flag AutoReportsAfterCheck = 0;
    Flag MakeTextReport = 0;
    Flag MakeAsciiReport = 0;
    Flag MakeHtmlReport = 0;
    std::string ReportFolder;
    Flag QuestionableOnly = 0;
    Flag EmailReports = 0;
    Flag CopyMeOnReports = 0;
    std::array<std::string, 3> ReportAddresses;
};

// Lines of quorvant.cfg that aren't the window's.
struct ProgramSettings {
    std::int16_t ProgramMode = kInternetMode;
    Flag EntryIsSite = 1;
    std::string BrowserPath;
    std::string EditorPath;
    std::string LastLocalSite;
    std::string LastLocalDocument;
    std::string LastInternetSite;
    std::string LastInternetDocument;
    std::string SourceViewerPath;
    Flag AutoCheckLinks = kClear;
    Flag RemoteLinksNotChecked = kClear;
    Flag ShowToolHints = kSet;
    Flag PersistentRedirectsOk = kSet;
};

// What the dialog of the reports chooses, beside the folder and the filter. Lines of reprtcfg.zdt.
struct ReportSettings {
    Flag SaveTextReport = kClear;
    Flag SaveAsciiReport = kClear;
    Flag SaveHtmlReport = kClear;
    Flag SaveAllInOne = kClear;  // stored and shown only
    Flag SaveOneOnly = kClear;   // the selected document instead of all
    std::string LogFolder;       // of the logs, with a backslash at its end
};

// What an Enterprise run works off, and what it leaves. Lines of batchlst.zdt and newencfg.zdt.
struct EnterpriseSettings {
    std::vector<std::string> EnterpriseList;  // record numbers of the site database, as texts, in the order of the run
    Flag MakeEventLog = kClear;
    Flag EmailLogs = kClear;
    Flag ExitWhenComplete = kClear;
    Flag MakeHtmlLog = kClear;
};

struct Settings : EntrySettings, ProgramSettings, ReportSettings, EnterpriseSettings {};

// The mail values. The first nine are lines of emailcfg.zdt.
struct MailSettings {
    std::string MailServer;
    std::string MailFromAddress;
    std::string MailFromName;
    std::string MailSubject;
    std::string MailTo;
    std::string MailIncludeComments;  // carried along as it stands
    std::string MailAuthName;
    std::string MailAuthPassword;
    std::string MailAuthRequired;  // "Yes" or "No"
    std::string MailCopyList;      // addresses, each followed by a comma
    std::string MailBody;
};

// A text bounded by blanks as its parts: blanks at the left end are removed, and each blank ends a part, also an empty one.
std::vector<std::string> SplitBlankList(std::string_view text);

}  // namespace qv
