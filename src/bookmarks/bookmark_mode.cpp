#include "bookmarks/bookmark_mode.h"

#include "controls/window_system.h"
#include "session/choose_folder.h"
#include "text/basic_text.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace qv {

bool BookmarkMode::CompanionRunning() const { return !FindWindowTitle(p_.others.Titles(), "Zephon Bookmarks", false).empty(); }

bool BookmarkMode::RefuseIfRunning() const {
    if (!CompanionRunning()) return false;
    p_.window.Windows().ShowMessage(
        "Zephon Bookmarks is currently running. You must exit Zephon Bookmarks in order to edit your Bookmarks in Quorvantis.");
    return true;
}

std::string BookmarkMode::File(const char* kind, int bar) const {
    return BookmarkFolder_ + p_.files.RealName(BookmarkFolder_, kind + std::to_string(bar) + ".zdt");
}

void BookmarkMode::MenuFileZephonMode_Click() {
    if (p_.settings.ProgramMode == kBookmarksMode) return;
    WindowSystem& windows = p_.window.Windows();
    const auto answer = windows.ShowFileDialog(
        {.title = "Locate Your Zephon Bookmarks Data Folder...", .filter = "All Files (*.*)|*.*", .name = "*.", .folder = BookmarkFolder_});
    if (!answer) return;
    BookmarkFolder_ = ChosenFolder(p_.files, *answer);
    const std::string first = File("bookb", 1);
    if (p_.files.Length(first) == 0) {
        if (!p_.files.FileExists(first)) p_.files.Create(first);  // looking for it has always left it there
        windows.ShowMessage("Couldn't find any bookmark files in that directory.");
        BookmarkFolder_.clear();
        return;
    }
    EnterMode();
    LoadBars();
    p_.rules.EnableControls();
}

void BookmarkMode::EnterMode() {
    CheckForm& w = p_.window;
    p_.modes.ResetMode();
    p_.settings.ProgramMode = kBookmarksMode;
    p_.rules.SetModeControls();
    p_.rules.DisableControls();
    w.SetCaption("Zephon Quorvantis - Zephon Bookmarks Mode");
    ShowAllLinks(w, p_.flags);
    for (Control* control : std::initializer_list<Control*>{&w.MenuView, &w.MenuLinkOpen, &w.ComOpen, &w.Command1})
        control->SetVisible(false);
    for (Control* control : std::initializer_list<Control*>{&w.MenuLinkDelete, &w.MenuZephonSave}) {
        control->SetVisible(true);
        control->SetEnabled(true);
    }
    for (Menu* menu : {&w.MenuView, &w.MenuLinkOpen}) menu->SetEnabled(false);
    w.MenuLinkView.SetCaption("&Edit Bookmark");
    w.lblFileName.SetCaption("Zephon Bookmarks Toolbars");
    w.StatusBar1.SetText("Entering Zephon Bookmarks Mode...");
    p_.rules.BookmarksChanged = kClear;
    BookmarksImported_ = 0;
}

void BookmarkMode::LoadBars() {
    CheckForm& w = p_.window;
    w.List1.Clear();
    w.ProgressBar1.SetRange(0, kBars);
    w.ProgressBar1.SetValue(0);
    w.LabelInd.SetCaption("Importing Zephon Bookmarks...");
    BookmarkBarChanged_.fill(false);
    for (int bar = 1; bar <= kBars && p_.settings.ProgramMode == kBookmarksMode; ++bar) {
        std::string bytes;
        if (p_.files.Read(File("bookb", bar), bytes) && !bytes.empty()) {
            const std::string title(LineReader(bytes).Next());
            if (const std::int32_t count = LoadBookmarks(bar, title); count > 0) {
                p_.flags.IgnoreControlEvents = kSet;
                w.txtFileName.AddItem(title, bar);
                p_.flags.IgnoreControlEvents = kClear;
                BookmarksImported_ += count;
            }
        }
        w.ProgressBar1.SetValue(bar);
        p_.loop.YieldIfDue();
    }
    if (w.txtFileName.Count() > 0) w.txtFileName.SetListIndex(0);
    w.ProgressBar1.SetValue(0);
    w.LabelInd.SetCaption(PrintForm(BookmarksImported_) + " Bookmarks Imported.");
}

std::int32_t BookmarkMode::LoadBookmarks(int bar, const std::string& title) {
    std::string bytes;
    p_.files.Read(File("bookm", bar), bytes);
    const std::int32_t count = bytes.empty() ? 0 : FillLinks(ParseBookmarks(bytes), p_.session.Links);
    p_.store.WriteTitle(bar, title);
    p_.session.CurrentDocumentUrl = "Zephon Bookmarks Toolbar";
    p_.store.SaveLinkList(bar);
    return count;
}

std::string* BookmarkMode::CurrentUrl() {
    const std::int32_t link = p_.window.List1.ItemData(p_.window.List1.ListIndex());
    if (p_.settings.ProgramMode != kBookmarksMode || !p_.session.Links.Has(link)) return nullptr;
    return &p_.session.Links.LinkUrls[static_cast<std::size_t>(link)];
}

void BookmarkMode::BarChanged() {
    const std::int32_t bar = p_.window.txtFileName.ItemData(p_.window.txtFileName.ListIndex());
    p_.store.SaveLinkList(bar);
    p_.rules.BookmarksChanged = kSet;
    if (bar > 0 && bar <= kBars) BookmarkBarChanged_[static_cast<std::size_t>(bar)] = true;
}

// A group itself doesn't go, marked or not: the companion has always twelve.
void BookmarkMode::MenuLinkDelete_Click() {
    std::string* url = CurrentUrl();
    if (url == nullptr || RefuseIfRunning()) return;
    url->insert(0, kDeleteMark);
    p_.session.Links.Touch();
    p_.rows.RefreshLinkRow(p_.window.List1.ListIndex());
    BarChanged();
}

void BookmarkMode::MenuLinkView_Click() {
    const std::string* url = CurrentUrl();
    if (url == nullptr || IsHeading(*url) || RefuseIfRunning()) return;
    if (ShowEditForm()) BarChanged();
}

// The rows follow the file, so that a second update finds them in step again.
void BookmarkMode::UpdateBar(int bar) {
    std::string bytes;
    const std::string path = File("bookm", bar);
    p_.store.LoadLinkList(bar);
    if (!p_.files.Read(path, bytes)) return;
    BookmarkGroups groups = ParseBookmarks(bytes);
    LinkTable& links = p_.session.Links;
    ApplyRows(links, groups);
    if (const auto file = p_.files.Replace(path)) {
        file->Append(ComposeBookmarks(groups));
        file->Finish();
    }
    const LinkTable before = links;
    FillLinks(groups, links);
    std::int32_t row = 0;
    for (std::size_t i = 1; i < before.LinkUrls.size(); ++i) {
        const std::string& url = before.LinkUrls[i];
        if (Contains(url, Trim(kDeleteMark)) && !Contains(url, "GROUP:")) continue;
        if (links.Has(++row)) links.LinkFlags[static_cast<std::size_t>(row)] = before.LinkFlags[i];
    }
    p_.store.SaveLinkList(bar);
}

void BookmarkMode::UpdateBookmarks() {
    CheckForm& w = p_.window;
    w.ProgressBar1.SetRange(0, w.txtFileName.Count());
    w.LabelInd.SetCaption("Updating Zephon Bookmarks...");
    for (int document = 0; document < w.txtFileName.Count(); ++document) {
        const std::int32_t bar = w.txtFileName.ItemData(document);
        if (bar > 0 && bar <= kBars && BookmarkBarChanged_[static_cast<std::size_t>(bar)]) UpdateBar(bar);
        w.ProgressBar1.SetValue(document + 1);
    }
    p_.rules.BookmarksChanged = kClear;
    BookmarkBarChanged_.fill(false);
    w.ProgressBar1.SetValue(0);
    w.LabelInd.SetCaption("");
    txtFileName_Click();
}

}  // namespace qv
