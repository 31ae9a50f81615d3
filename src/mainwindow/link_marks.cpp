#include "mainwindow/link_marks.h"

#include "text/basic_text.h"

namespace qv {
namespace {

// The walk stops at links that weren't asked yet, too: they are neither good nor left out.
bool PassesOnWalk(std::string_view status, bool persistentRedirectsOk) {
    return StartsWith(status, "OK") || StartsWith(status, "NA") ||
           (persistentRedirectsOk && (StartsWith(status, "301") || StartsWith(status, "302")));
}

}  // namespace

bool LinkMarks::IsGroupRow(std::int32_t link) const {
    if (p_.settings.ProgramMode != kBookmarksMode || !p_.session.Links.Has(link)) return false;
    return IsHeading(p_.session.Links.LinkUrls[static_cast<std::size_t>(link)]);
}

void LinkMarks::TakeMark() {
    const ListBox& list = p_.window.List1;
    const std::int32_t link = list.ItemData(list.ListIndex());
    if (!p_.session.Links.Has(link)) return;
    p_.session.Links.LinkFlags[static_cast<std::size_t>(link)].Mark = list.Selected(list.ListIndex()) ? 'X' : ' ';
    p_.store.SaveLinkList(p_.window.txtFileName.ItemData(p_.window.txtFileName.ListIndex()));
}

void LinkMarks::List1_MouseDown() {
    ListBox& list = p_.window.List1;
    if (list.ListIndex() < 0) return;
    if (IsGroupRow(list.ItemData(list.ListIndex())))
        list.SetSelected(list.ListIndex(), false);
    else if (p_.settings.ProgramMode == kBookmarksMode)
        p_.window.MenuLink.SetEnabled(true);
    TakeMark();
}

void LinkMarks::List1_KeyUp() {
    ListBox& list = p_.window.List1;
    if (list.ListIndex() < 0) return;
    const bool group = IsGroupRow(list.ItemData(list.ListIndex()));
    if (group) list.SetSelected(list.ListIndex(), false);
    if (p_.settings.ProgramMode == kBookmarksMode) p_.window.MenuLink.SetEnabled(!group);
    TakeMark();
}

void LinkMarks::List1_MouseMove() {
    ListBox& list = p_.window.List1;
    const std::int32_t link = list.ItemData(list.ListIndex());
    if (p_.session.Links.Has(link) && !IsGroupRow(link))
        list.SetTip(std::string(Trim(p_.session.Links.LinkUrls[static_cast<std::size_t>(link)])));
}

bool LinkMarks::HoldsQuestionable(int document, Rule passes) {
    p_.store.LoadLinkList(p_.window.txtFileName.ItemData(document));
    const LinkTable& links = p_.session.Links;
    for (std::int32_t link = 1; link <= links.LinkCount; ++link) {
        const LinkFlag& flag = links.LinkFlags[static_cast<std::size_t>(link)];
        if (!IsGroupRow(link) && !passes(flag.TrimmedStatus(), p_.settings.PersistentRedirectsOk != 0)) return true;
    }
    return false;
}

int LinkMarks::FindQuestionable(int first, int last, int step, Rule passes) {
    for (int document = first; step > 0 ? document <= last : document >= last; document += step)
        if (HoldsQuestionable(document, passes)) return document;
    return -1;
}

void LinkMarks::Refill() {
    CheckForm& w = p_.window;
    w.List1.SetVisible(false);
    w.List1.Clear();
    p_.rows.AddAllRows();
    p_.rows.SetListExtent();
    w.List1.SetVisible(true);
    if (w.List1.Count() > 0) w.List1.SetListIndex(0);
    p_.rules.ShowPosition();
}

void LinkMarks::ShowFound(int document) {
    p_.window.txtFileName.SetListIndex(document);
    p_.store.LoadLinkList(p_.window.txtFileName.ItemData(document));
    Refill();
    p_.rules.SetToolButtons();
}

void LinkMarks::MenuLinkHide_Click() {
    CheckForm& w = p_.window;
    if (p_.flags.HideGoodLinks != 0) {
        ShowAllLinks(w, p_.flags);
        txtFileName_Click();
        if (w.List1.Count() > 0) w.List1.SetListIndex(0);
        return;
    }
    p_.flags.HideGoodLinks = kSet;
    w.MenuLinkHide.SetChecked(true);
    w.ComHide.SetCaption("S&how All");
    w.SetPointer(Pointer::Wait);
    const int selected = w.txtFileName.ListIndex();
    int found = selected < 0 ? -1 : FindQuestionable(selected, w.txtFileName.Count() - 1, 1, IsHiddenStatus);
    if (found < 0) found = FindQuestionable(selected - 1, 0, -1, IsHiddenStatus);
    if (found >= 0) {
        ShowFound(found);
    } else {
        ShowAllLinks(w, p_.flags);
        w.Windows().ShowMessage("No questionable links were found.");
        if (selected >= 0) p_.store.LoadLinkList(w.txtFileName.ItemData(selected));
        Refill();
    }
    w.SetPointer(Pointer::Default);
}

bool LinkMarks::FindQuestionableDocument(std::int16_t direction) {
    CheckForm& w = p_.window;
    w.SetPointer(Pointer::Wait);
    const int selected = w.txtFileName.ListIndex();
    const int found =
        direction == 2 ? FindQuestionable(selected - 1, 0, -1, PassesOnWalk)
                       : FindQuestionable(selected + 1, w.txtFileName.Count() - 1, 1, PassesOnWalk);
    if (found >= 0) {
        ShowFound(found);
    } else {
        w.Windows().ShowMessage(direction == 2 ? "No questionable links were found before this document."
                                               : "No questionable links were found beyond this document.");
        p_.store.LoadLinkList(w.txtFileName.ItemData(selected));
        Refill();
    }
    w.SetPointer(Pointer::Default);
    return found >= 0;
}

}  // namespace qv
