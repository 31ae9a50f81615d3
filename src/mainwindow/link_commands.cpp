#include "mainwindow/link_commands.h"

#include "session/link_rows.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr char kMarked = 'X';
constexpr char kUnmarked = ' ';

}  // namespace

bool LinkCommands::IsHeadingRow(const LinkTable& links, std::size_t link) const {
    return p_.settings.ProgramMode == kBookmarksMode && IsHeading(links.LinkUrls[link]);
}

void LinkCommands::OverAllDocuments(const Step& step, bool hidesList) {
    CheckForm& w = p_.window;
    Control* focus = w.Focus();
    w.SetPointer(Pointer::Wait);
    p_.rules.DisableControls();
    if (hidesList) w.List1.SetVisible(false);
    w.ProgressBar1.SetValue(0);
    w.ProgressBar1.SetVisible(true);
    w.Picture1.SetVisible(false);
    w.ProgressBar1.SetRange(0, w.txtFileName.Count());
    ShowAllLinks(w, p_.flags);
    for (int document = 0; document < w.txtFileName.Count(); ++document) {
        const std::int32_t number = w.txtFileName.ItemData(document);
        if (number <= 0) continue;
        p_.store.LoadLinkList(number);
        for (std::size_t link = 1; link < p_.session.Links.LinkTexts.size(); ++link) {
            step(p_.session.Links, link);
            p_.loop.YieldIfDue();
        }
        if (w.txtFileName.ItemData(document) != number) break;  // the session was cleared meanwhile
        p_.store.SaveLinkList(number);
        w.ProgressBar1.SetValue(document + 1);
    }
    p_.session.Good.Clear();
    w.ProgressBar1.SetValue(0);
    p_.rules.EnableControls();
    txtFileName_Click();
    w.List1.SetListIndex(0);
    w.List1.SetVisible(true);
    w.SetPointer(Pointer::Default);
    if (focus != nullptr) focus->SetFocus();
}

void LinkCommands::MenuEditSelectAll_Click() {
    OverAllDocuments(
        [this](LinkTable& links, std::size_t link) { links.LinkFlags[link].Mark = IsHeadingRow(links, link) ? kUnmarked : kMarked; },
        true);
}

void LinkCommands::MenuEditSelectNone_Click() {
    OverAllDocuments([](LinkTable& links, std::size_t link) { links.LinkFlags[link].Mark = kUnmarked; }, true);
}

void LinkCommands::MenuEditReset_Click() {
    OverAllDocuments(
        [this](LinkTable& links, std::size_t link) {
            links.LinkFlags[link].SetStatus("");
            links.LinkFlags[link].Mark = IsHeadingRow(links, link) ? kUnmarked : kMarked;
        },
        false);
}

void LinkCommands::SelectByText(std::int16_t searchMode) {
    p_.search.SearchMode = searchMode;
    ShowSearchForm();
    if (p_.search.SearchCancelled != 0) {
        p_.search.SearchCancelled = kClear;
        return;
    }
    const std::string text = Lower(p_.search.SelectionText);
    const bool wanted = searchMode == kSelectContaining;
    const bool local = p_.settings.ProgramMode == kLocalMode;
    OverAllDocuments(
        [&](LinkTable& links, std::size_t link) {
            const std::string& tested = local && !links.LinkPaths[link].empty() ? links.LinkPaths[link] : links.LinkUrls[link];
            if (Contains(Lower(tested), text) == wanted) links.LinkFlags[link].Mark = kMarked;
        },
        true);
}

void LinkCommands::ToggleRow(int row) {
    LinkTable& links = p_.session.Links;
    const std::int32_t link = p_.window.List1.ItemData(row);
    if (!links.Has(link)) return;
    const auto i = static_cast<std::size_t>(link);
    const bool marked = !p_.window.List1.Selected(row) && !IsHeadingRow(links, i);
    p_.window.List1.SetSelected(row, marked);
    links.LinkFlags[i].Mark = marked ? kMarked : kUnmarked;
}

void LinkCommands::Toggle(bool above) {
    CheckForm& w = p_.window;
    const int place = w.List1.ItemData(w.List1.ListIndex()) - 1;
    if (place < 0) return;
    ShowAllLinks(w, p_.flags);
    txtFileName_Click();
    const int last = w.List1.Count() - 1;
    for (int row = above ? 0 : place; row <= (above ? place : last); ++row) ToggleRow(row);
    p_.store.SaveLinkList(w.txtFileName.ItemData(w.txtFileName.ListIndex()));
    p_.session.Good.Clear();
    if (w.List1.Count() > 0) w.List1.SetListIndex(place);
}

void LinkCommands::MenuEditCopy_Click() {
    const std::int32_t link = p_.window.List1.ItemData(p_.window.List1.ListIndex());
    if (p_.session.Links.Has(link)) p_.window.Windows().SetClipboard(p_.session.Links.LinkUrls[static_cast<std::size_t>(link)]);
}

void LinkCommands::MenuEditCopyLink_Click() {
    const LinkTable& links = p_.session.Links;
    const std::int32_t link = p_.window.List1.ItemData(p_.window.List1.ListIndex());
    if (!links.Has(link)) return;
    const auto i = static_cast<std::size_t>(link);
    p_.window.Windows().SetClipboard("<A HREF=\"" + links.LinkUrls[i] + "\">" + links.LinkTexts[i] + "</A>");
}

void LinkCommands::MenuEditPaste_Click() {
    const std::string address = p_.browser.PageAddress();
    if (!address.empty()) p_.window.Windows().Activate(p_.window);  // the browser is in front now
    if (address.empty())
        p_.window.Windows().ShowMessage(
            "Quorvantis can't communicate with your Browser.  Neither Netscape nor Internet Explorer is currently running. "
            "Please start your browser.");
    else
        p_.window.TextFileName.SetText(address);
    p_.window.txtFileName.SetFocus();
}

}  // namespace qv
