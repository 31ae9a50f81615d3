#include "program/check_command.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "check/link_check_run.h"
#include "controls/window_system.h"
#include "mainwindow/check_form.h"
#include "platform/linux/interrupts.h"
#include "platform/linux/poll_loop.h"
#include "platform/linux/scratch_folder.h"
#include "program/linux_services.h"
#include "program/program.h"
#include "session/link_rows.h"
#include "session/partial_site.h"
#include "sitedb/wizard_form.h"
#include "text/basic_text.h"
#include "text/numbers.h"

namespace qv {
namespace {

// Shows what a window would show: messages go to standard error and take their default button.
class TerminalWindows : public WindowListener {
   public:
    explicit TerminalWindows(WindowSystem& windows) : windows_(windows) { windows.Listen(this); }
    void FormShown(Form&) override {}
    void FormClosed(const Form&) override {}
    void MessageShown(const MessageRequest& request) override {
        if (!request.question) Tell(request.text);
        windows_.Answer(request.defaultButton);
    }
    void DialogShown(const FileDialogRequest&) override { windows_.Answer(std::nullopt); }
    void Beeped() override {}

    void Tell(const std::string& text) {
        ClearProgress();
        std::fprintf(stderr, "%s\n", std::string(Trim(text)).c_str());
    }
    void Progress(const std::string& text) {
        if (!terminal_) return;
        std::fprintf(stderr, "\r\033[K%s", text.substr(0, 100).c_str());
        progress_ = true;
    }
    void ClearProgress() {
        if (progress_) std::fputs("\r\033[K", stderr);
        progress_ = false;
    }

   private:
    WindowSystem& windows_;
    const bool terminal_ = IsTerminal(stderr);
    bool progress_ = false;
};

void ApplyOptions(const CheckOptions& options, Settings& s) {
    s.IncludeImages = FlagOf(options.images);
    s.IgnoreJavaScript = FlagOf(!options.javascript);
    s.FollowRedirects = FlagOf(!options.noRedirects);
    s.CheckFtpLinks = FlagOf(!options.noFtp);
    s.HttpTimeout = s.FtpTimeout = static_cast<float>(options.timeout);
    s.UserAgent = options.userAgent;
    if (!options.local.empty()) s.ProgramMode = kLocalMode;
    s.SiteOpenMode = static_cast<std::int16_t>(options.walk == "tree" ? 2 : options.walk == "folder" ? 1 : 0);
    s.AutoCheckLinks = kClear;  // the check follows in any case
    if (!options.types.empty()) s.DocumentTypes = BetweenBlanks(options.types);
    if (!options.ignoreOpen.empty()) {
        s.IgnoreOpenPaths = BetweenBlanks(options.ignoreOpen);
        s.IgnoreOpenPathList = SplitBlankList(s.IgnoreOpenPaths);
    }
    if (!options.ignoreText.empty()) s.IgnoreTextList.push_back(options.ignoreText);
    if (!options.ignoreLinks.empty()) {
        s.IgnoreLinkPaths = BetweenBlanks(options.ignoreLinks);
        s.IgnoreLinkPathList = SplitBlankList(s.IgnoreLinkPaths);
    }
    if (!options.proxy.empty()) {
        const auto colon = options.proxy.rfind(':');
        s.UseProxy = kSet;
        s.ProxyServerName = options.proxy.substr(0, colon);
        s.ProxyPortText = colon == std::string::npos ? "80" : options.proxy.substr(colon + 1);
    }
    if (!options.user.empty()) {
        const auto colon = options.user.find(':');
        s.UseHttpAuthentication = kSet;
        s.HttpUserName = options.user.substr(0, colon);
        s.HttpPassword = colon == std::string::npos ? "" : options.user.substr(colon + 1);
    }
}

// Whether a row is worth a line: not good, and asked for.
bool IsQuestionable(std::string_view status, const Settings& settings) {
    return !IsHiddenStatus(status, settings.PersistentRedirectsOk != 0 && settings.FollowRedirects != 0);
}

// The rows of the document that is selected. A document of a site without a row to print isn't named.
void PrintRows(const CheckOptions& options, Program& program) {
    const LinkTable& links = program.SharedSession().Links;
    const std::string& address = program.SharedSession().CurrentDocumentUrl;
    bool named = !options.site;
    if (named) std::printf("%s\n", address.c_str());
    for (std::size_t i = 1; i < links.LinkTexts.size(); ++i) {
        const LinkFlag& flag = links.LinkFlags[i];
        if (!options.listAll && !IsQuestionable(flag.TrimmedStatus(), program.SharedSettings())) continue;
        if (!named) std::printf("%s\n", address.c_str());
        named = true;
        std::printf("  %s %s  %s\n", flag.Status.c_str(), links.LinkUrls[i].c_str(), links.LinkTexts[i].c_str());
    }
}

void PrintDocuments(const CheckOptions& options, Program& program) {
    ListBox& documents = program.MainWindow().txtFileName;
    for (int document = 0; document < documents.Count(); ++document) {
        documents.SetListIndex(document);
        PrintRows(options, program);
    }
}

// The file of the home page of a mirror whose address names none.
std::string HomePage(const Files& files, const std::string& folder) {
    for (const char* name : {"index.html", "index.htm"})
        if (files.FileExists(folder + name)) return name;
    return "index.html";
}

Program::QuietEntry EntryOf(const CheckOptions& options, const Files& files) {
    Program::QuietEntry entry;
    GetFileName(options.address, entry.siteUrl, entry.fileName);
    if (options.local.empty()) return entry;
    entry.folder = PathText(options.local);
    if (!EndsWith(entry.folder, "\\")) entry.folder += "\\";
    if (entry.fileName.empty()) entry.fileName = HomePage(files, entry.folder);
    return entry;
}

void Open(const CheckOptions& options, const Files& files, Program& program) {
    const Program::QuietEntry entry = EntryOf(options, files);
    const bool partial = HasPartialSite(files, program.SharedSession().AppPath + "cache\\");
    if (options.resume && program.MainWindow().txtFileName.Count() > 0 && !partial) return;  // the walk was at its end
    if (options.site)
        program.OpenSite(entry);
    else
        program.OpenDocument(entry);
}

// Writes the reports that are wanted; false when one of them didn't come about.
bool WriteReports(const CheckOptions& options, Program& program) {
    if (options.reports.empty()) return true;
    Settings& settings = program.SharedSettings();
    const auto wanted = [&](const char* form) {
        return FlagOf(std::find(options.reports.begin(), options.reports.end(), form) != options.reports.end());
    };
    settings.SaveTextReport = wanted("text");
    settings.SaveAsciiReport = wanted("ascii");
    settings.SaveHtmlReport = wanted("html");
    program.MainWindow().txtFileName.SetListIndex(0);  // the report is named for the first document's site
    settings.QuestionableOnly = FlagOf(options.questionableOnly);
    std::string folder = PathText(options.folder);
    if (!EndsWith(folder, "\\")) folder += "\\";
    const Program::ReportPaths outcome = program.CreateReports(folder);
    for (const auto& path : outcome.written) std::fprintf(stderr, "Report: %s\n", NativePath(path).c_str());
    for (const auto& path : outcome.failed) std::fprintf(stderr, "This report couldn't be written: %s\n", NativePath(path).c_str());
    return outcome.failed.empty();
}

int Check(const CheckOptions& options, const Files& files, Program& program, TerminalWindows& terminal, bool& interrupted) {
    CheckForm& window = program.MainWindow();
    terminal.Progress("Opening " + options.address);
    Open(options, files, program);
    if (window.txtFileName.Count() == 0) {
        if (!interrupted) terminal.Tell(program.SharedSession().LogText);
        return interrupted ? kExitStopped : kExitNotOpened;
    }
    program.CheckRun().RowJudged = [&] {
        terminal.Progress(std::to_string(window.ProgressBar1.Value()) + " of " + std::to_string(window.ProgressBar1.Max()) +
                          "  " + window.StatusBar1.Text());
    };
    if (!interrupted) window.ComStart.Click();
    terminal.ClearProgress();
    const std::string closingLine = window.LabelInd.Caption();
    PrintDocuments(options, program);
    std::printf("%s\n", closingLine.c_str());
    if (!WriteReports(options, program)) return kExitNotOpened;
    if (program.CheckRun().RunStopped() || interrupted) return kExitStopped;
    return program.CheckRun().QuestionableCount() == 0 ? kExitNothingQuestionable : kExitQuestionable;
}

}  // namespace

int RunCheckCommand(const CheckOptions& options) {
    if (!StartsWithLower(options.address, "http://")) {
        std::fprintf(stderr, "Not a valid Web URL: %s\n", options.address.c_str());
        return kExitNotOpened;
    }
    const ScratchFolder scratch;
    const bool keep = !options.home.empty();
    PollLoop loop;
    LinuxServices world(loop, PathText(keep ? options.home : scratch.NativePath()));
    world.LeaveOutPauses();
    Program program(world.Services(""));
    TerminalWindows terminal(program.Windows());
    program.StartQuietly(options.resume);
    ApplyOptions(options, program.SharedSettings());
    program.SharedSession().SiteHost = Lower(SplitUrl(options.address).Server);
    bool interrupted = false;
    const InterruptWatch watch(world.Loop(), [&] {
        interrupted = true;
        CheckForm& window = program.MainWindow();
        if (window.ComStop.Enabled())
            window.ComStop.Click();
        else if (window.Command1.Caption() != kCaptionCheckSite)
            window.Command1.Click();
        else if (window.ComOpen.Caption() == kCaptionCancelDocument)
            window.ComOpen.Click();
    });
    const int status = Check(options, world.FileSystem(), program, terminal, interrupted);
    terminal.ClearProgress();
    program.EndQuietly(keep);
    return status;
}

}  // namespace qv
