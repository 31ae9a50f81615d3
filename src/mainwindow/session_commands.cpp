#include "mainwindow/session_commands.h"

#include <optional>

#include "sitedb/load_site_record.h"
#include "sitedb/site_database.h"
#include "text/basic_text.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr const char* kListFilter = "All Files (*.*)|*.*|Quorvantis List Files (*.qvl)|*.qvl";

bool EndsInListExtension(const std::string& name) { return EndsWith(Lower(name), ".qvl"); }

}  // namespace

void SessionCommands::DeleteCacheFiles() {
    ProgressBar& bar = p_.window.ProgressBar1;
    const std::string cache = p_.store.CacheFolder();
    bar.SetRange(0, 6);
    long step = 0;
    for (const char* mask : {"*.htm", "*.qvn", "*.lks", "*.txt", "*.zdt"}) {
        p_.files.RemoveAll(cache, mask);
        bar.SetValue(++step);
    }
    p_.files.RemoveAll(cache, ".quorvantis-*");  // writes that a crash has cut
    p_.files.Remove(p_.session.AppPath + "session.zdt");
    bar.SetValue(++step);
}

void SessionCommands::ForgetDocuments() {
    CheckForm& w = p_.window;
    p_.session.ImportFilePath.clear();
    w.TextFileName.SetText("");
    w.txtFileName.Clear();
    w.List1.Clear();
    w.List1.SetTip("");
    p_.session.Links.Clear();
    p_.session.Good.Clear();
    p_.flags.HideGoodLinks = kClear;
    w.ComHide.SetCaption(kCaptionShowBadOnly);
    w.MenuLinkHide.SetChecked(false);
    p_.session.SiteHostAddress.clear();
}

// A change of mode can come in the middle of a run, a walk or an open: what it works on goes, so it ends at its next step.
void SessionCommands::EndWhatRuns() {
    if (p_.flags.CheckRunning == 0 && p_.flags.SiteOpenRunning == 0 && p_.flags.RetrievalMode == 0) return;
    p_.flags.StopRequested = kSet;
    if (p_.flags.SiteOpenRunning != 0) p_.flags.SiteOpenHalted = kSet;
}

void SessionCommands::MenuFileNew_Click() {
    CheckForm& w = p_.window;
    EndWhatRuns();
    w.SetPointer(Pointer::Wait);
    w.LabelInd.SetCaption("Clearing Cache...");
    p_.rules.DisableControls();
    DeleteCacheFiles();
    ForgetDocuments();
    p_.http.SetAction(HTTP1::Stop);
    p_.ftp.SetAction(FTP1::Idle);
    p_.rules.EnableControls();
    w.LabelInd.SetCaption("");
    w.ProgressBar1.SetValue(0);
    for (Control* control : std::initializer_list<Control*>{&w.ComStart, &w.SpinLeft, &w.SpinRight}) control->SetEnabled(false);
    if (p_.flags.EnterpriseRunning == 0) w.txtFileName.SetFocus();
    w.SetPointer(Pointer::Default);
}

void SessionCommands::MenuFileSaveList_Click() {
    const auto chosen = p_.window.Windows().ShowFileDialog({.save = true,
                                                            .title = "Save Document List...",
                                                            .filter = kListFilter,
                                                            .filterIndex = 2,
                                                            .name = "untitled.qvl",
                                                            .folder = p_.session.AppPath + "Document Lists"});
    if (!chosen) return;
    std::string name(Trim(*chosen));
    if (EndsInListExtension(name)) name.resize(name.size() - 4);
    if (p_.files.FileExists(name + ".qvl")) {
        const std::string answer = p_.window.Windows().ShowMessage({.text = name + " already exists.  Overwrite it?",
                                                                    .title = "File Exists",
                                                                    .buttons = {"OK", "Cancel"},
                                                                    .defaultButton = "Cancel",
                                                                    .question = true});
        if (answer != "OK") return;
    }
    p_.store.SaveDocumentList(name, p_.settings.ProgramMode, p_.window.txtFileName);
}

void SessionCommands::TakeListMode(std::int16_t listMode) {
    if (listMode == kLocalMode && p_.settings.ProgramMode == kInternetMode)
        MenuFileLocalMode_Click();
    else if (listMode == kInternetMode && p_.settings.ProgramMode == kLocalMode)
        MenuFileNormalMode_Click();
}

std::int16_t SessionCommands::FindRecord(const std::string& siteUrl) const {
    const std::string wanted = Lower(siteUrl);
    std::int16_t number = 0;
    for (const SiteRecord& record : p_.sites.ReadAll()) {
        ++number;
        if (Contains(Lower(record.SiteUrl()), wanted)) return number;
    }
    return 0;
}

void SessionCommands::ReopenDocument(const HeaderLines& lines) {
    Session& s = p_.session;
    s.SiteUrl = lines[0];
    s.SiteFileName = lines[1];
    s.SiteFolder = lines[2];
    s.CurrentDocumentUrl = lines[3];
    s.DocumentPath = lines[4];
    p_.window.TextFileName.SetText(s.CurrentDocumentUrl);
    s.SiteRecordNumber = FindRecord(s.SiteUrl);
    if (s.SiteRecordNumber == 0) return;
    p_.loader.LoadSiteRecord(s.SiteRecordNumber, 0);
    if (p_.settings.ProgramMode == kLocalMode) {
        if (OpenLocalDocument) OpenLocalDocument(lines[4], lines[3]);
        return;
    }
    p_.flags.ReopenFromList = kSet;
    ComOpen_Click();
    p_.flags.ReopenFromList = kClear;
}

void SessionCommands::MenuFileLoadList_Click() {
    const auto chosen = p_.window.Windows().ShowFileDialog({.title = "Load Document List...",
                                                            .filter = kListFilter,
                                                            .filterIndex = 2,
                                                            .name = "*.qvl",
                                                            .folder = p_.session.AppPath + "Document Lists"});
    if (!chosen) return;
    if (!EndsInListExtension(*chosen)) {
        p_.window.Windows().ShowMessage("Invalid File Type.");
        return;
    }
    std::string bytes;
    if (!p_.files.FileExists(*chosen) || !p_.files.Read(*chosen, bytes)) return;
    if (p_.window.txtFileName.Count() > 0) MenuFileNew_Click();
    LineReader reader(bytes);
    TakeListMode(LeadingInt16(reader.Next()).value_or(0));
    while (!reader.AtEnd()) {
        HeaderLines lines;
        for (auto& line : lines) line = std::string(reader.Next());
        ReopenDocument(lines);
    }
    ListBox& documents = p_.window.txtFileName;
    if (documents.ListIndex() == 0)
        documents.Click();  // what was opened behind it has left its traces
    else if (documents.Count() > 0)
        documents.SetListIndex(0);
}

}  // namespace qv
