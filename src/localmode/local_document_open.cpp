#include "localmode/local_document_open.h"

#include "extract/url_text.h"
#include "session/session_files.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr int kLightGreen = 10;
constexpr int kGreen = 2;
constexpr const char* kIgnored =
    "File contains a path fragment that you have requested Quorvantis to ignore. See 'Open Settings' in the 'Open Document' "
    "Dialog.";

}  // namespace

void LocalDocumentOpen::Log(const std::string& text) { p_.session.LogText += text + p_.session.LineBreak + p_.session.LineBreak; }

void LocalDocumentOpen::ClearProgress() {
    p_.window.ProgressBar1.SetValue(0);
    p_.window.Picture1.SetVisible(false);
}

void LocalDocumentOpen::OpenLocalDocument(const std::string& Path, const std::string& Url) {
    CheckForm& w = p_.window;
    p_.flags.HideGoodLinks = kClear;
    w.ComHide.SetCaption(kCaptionShowBadOnly);
    w.MenuLinkHide.SetChecked(false);
    p_.flags.StopRequested = kClear;
    w.SetPointer(Pointer::Wait);
    if (IsIgnoredDocument(Url, p_.settings.DocumentTypes, p_.settings.IgnoreOpenPathList)) {
        w.Windows().ShowMessage(kIgnored);
        w.SetPointer(Pointer::Default);
        return;
    }
    w.Picture2.SetFill(kLightGreen);
    if (p_.flags.SiteOpenRunning == 0) {
        p_.rules.DisableControls();
        w.StatusBar1.SetText("");
    }
    w.List1.Clear();
    std::string path(Trim(Path));
    ConvertSlashes(path, 0);
    if (Import(path, Url)) List(path);
    w.SetPointer(Pointer::Default);
    w.Picture2.SetFill(kGreen);
}

bool LocalDocumentOpen::Import(const std::string& path, const std::string& url) {
    p_.window.StatusBar1.SetText("Importing links from file...");
    std::string address(Trim(url));
    ConvertSlashes(address, 1);
    p_.http.SetURL(address);
    if (p_.flags.EnterpriseRunning != 0 && p_.flags.SiteOpenRunning == 0) Log("Opening Document - " + url);
    p_.session.ImportFilePath = path;
    PercentDecode(p_.session.ImportFilePath);
    Flag failed = kClear;
    std::string reason;
    p_.importer.Import(1, failed, reason, url);
    p_.session.ImportFilePath = path;
    if (failed != 0) Refuse(reason, path);
    return failed == 0;
}

void LocalDocumentOpen::Refuse(const std::string& reason, const std::string& path) {
    if (reason != "Path") Log(reason + " - " + path);
    ClearProgress();
    p_.window.StatusBar1.SetText("Done.");
    if (!p_.flags.Alone()) return;
    p_.rules.ShowPosition();
    p_.rules.EnableControls();
}

void LocalDocumentOpen::List(const std::string& path) {
    CheckForm& w = p_.window;
    Session& s = p_.session;
    s.CurrentDocumentUrl = std::string(Trim(w.TextFileName.Text()));
    w.StatusBar1.SetText("Document: " + s.CurrentDocumentUrl);
    DocumentHeader header = s;
    header.DocumentPath = path;
    HeaderLines lines = WebDocumentHeader(header);
    lines[6] = path;
    p_.documents.ListDocument(lines);
    if (p_.flags.EnterpriseRunning != 0 && p_.flags.SiteOpenRunning == 0) Log("Document Open Complete.  ");
    if (p_.flags.SiteOpenRunning == 0) {
        p_.rules.EnableControls();
        w.Command1.SetEnabled(true);
        if (w.List1.Count() > 0) w.ComStart.SetEnabled(true);
    }
    w.StatusBar1.SetText("Done.");
    p_.rules.ShowPosition();
    p_.flags.RetrievalMode = 0;
}

}  // namespace qv
