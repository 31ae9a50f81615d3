#include "mainwindow/document_selection.h"

#include "sitedb/load_site_record.h"
#include "sitedb/preferences.h"
#include "text/basic_text.h"
#include "text/numbers.h"

namespace qv {

void DocumentSelection::ReadHeader(std::int32_t number) {
    const HeaderLines lines = p_.store.ReadHeader(number);
    if (p_.settings.ProgramMode == kBookmarksMode) {
        p_.session.CurrentDocumentUrl = lines[0];
        p_.preferences.ApplyPreferences();
        return;
    }
    p_.session.SiteUrl = lines[0];
    p_.session.SiteFileName = lines[1];
    p_.session.SiteFolder = lines[2];
    p_.session.CurrentDocumentUrl = lines[3];
    p_.session.DocumentPath = lines[4];
    p_.session.SiteRecordNumber = LeadingInt16(lines[7]).value_or(0);
    p_.loader.LoadSiteRecord(p_.session.SiteRecordNumber, 0);
}

void DocumentSelection::TakeSiteHost() {
    p_.http.SetURL(p_.session.SiteUrl);
    const std::string host = Lower(p_.http.URLServer());
    if (host == p_.session.SiteHost) return;
    p_.session.SiteHost = host;
    p_.session.SiteHostAddress.clear();
}

void DocumentSelection::ShowLinks() {
    p_.rows.AddAllRows();
    p_.rows.SetListExtent();
    if (p_.window.List1.Count() > 0) p_.window.List1.SetListIndex(0);
    p_.window.List1.SetVisible(true);
}

void DocumentSelection::txtFileName_Click() {
    if (p_.flags.IgnoreControlEvents != 0) return;
    CheckForm& w = p_.window;
    const int selected = w.txtFileName.ListIndex();
    if (selected < 0) return;
    const std::int32_t number = w.txtFileName.ItemData(selected);
    if (number <= 0) {
        if (!w.TextFileName.Text().empty()) ComOpen_Click();
        return;
    }
    w.StatusBar1.SetText("Reading from cache file...");
    p_.rules.ShowPosition();
    w.ProgressBar1.SetValue(0);
    w.ProgressBar1.SetVisible(true);
    w.Picture1.SetVisible(false);
    ReadHeader(number);
    w.List1.SetVisible(false);
    w.List1.Clear();
    p_.store.LoadLinkList(number);
    TakeSiteHost();
    ShowLinks();
    const std::string& url = p_.session.CurrentDocumentUrl;
    p_.http.SetURL(url);
    if (p_.flags.CheckRunning == 0) w.ComStart.SetEnabled(true);
    w.StatusBar1.SetText("Document:  " + url);
    w.TextFileName.SetText(url);
    w.StatusBar1.SetText("Done.");
    if (p_.flags.SiteOpenRunning == 0 && p_.flags.CheckRunning == 0) p_.rules.SetToolButtons();
}

void DocumentSelection::txtFileName_Enter() {
    p_.session.WizardFromList = kSet;
    p_.session.WizardListIndex = p_.window.txtFileName.ListIndex();
    Command1_Click();
    p_.session.WizardFromList = kClear;
}

void DocumentSelection::txtFileName_RightClick() {
    if (p_.settings.ProgramMode == kBookmarksMode || p_.window.txtFileName.ListIndex() < 0) return;
    p_.window.PopUp(p_.window.MenuView);
}

void DocumentSelection::List1_RightClick() {
    const int row = p_.window.List1.ListIndex();
    if (row < 0) return;
    const std::int32_t link = p_.window.List1.ItemData(row);
    if (p_.settings.ProgramMode == kBookmarksMode && p_.session.Links.Has(link)) {
        const std::string& url = p_.session.Links.LinkUrls[static_cast<std::size_t>(link)];
        if (Contains(url, "GROUP:") || Contains(url, "SUBTITLE")) return;
    }
    p_.window.PopUp(p_.window.MenuLink);
}

}  // namespace qv
