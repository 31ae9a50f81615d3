#include "mainwindow/search_form.h"

#include "controls/window_system.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr int kBelowTop = 300;      // of the main window, pixels
constexpr double kFromLeft = 1.3;   // the form's width by this

}  // namespace

SearchForm::SearchForm(Parts parts) : Form(parts.window.Windows(), "SearchForm", "Search"), p_(parts) {
    SetSize(400, 130);
    SetDefaultButton(&ComFind);
    SetCancelButton(&ComCancel);
    Load = [this] { Form_Load(); };
    Unload = [this](bool&) {
        if (!answered_) p_.state.SearchCancelled = kSet;
        p_.state.SearchFormOpen = kClear;
    };
    Activate = [this] { TextFind.SetFocus(); };
    ComFind.Click = [this] { ComFind_Click(); };
    ComCancel.Click = [this] {
        p_.state.SearchCancelled = kSet;
        Close();
    };
}

void SearchForm::Form_Load() {
    SearchState& state = p_.state;
    const Geometry& main = p_.window.Place();
    SetPlace({main.left + static_cast<int>(Place().width / kFromLeft), main.top + kBelowTop, Place().width, Place().height});
    state.SearchFormOpen = kSet;
    state.SearchCancelled = kClear;
    answered_ = false;
    SearchPosition_ = 0;
    Check1.SetValue(0);
    static constexpr const char* kCaptions[] = {"Search For URL", "Search For Text", "Select Links That Contain:",
                                                "Select Links That Do Not Contain:"};
    SetCaption(kCaptions[state.SearchMode - 1]);
    ComFind.SetCaption(Selects() ? "&Select" : "&Find");
    Check1.SetVisible(!Selects());
    Label1.SetVisible(!Selects());
    SetTopmost(!Selects());
    TextFind.SetText(Selects() ? state.LastSelectionText : state.SearchText);
    TextFind.SelectAll();
}

void SearchForm::TakeSelectionText() {
    SearchState& state = p_.state;
    state.SelectionText = std::string(Trim(TextFind.Text()));
    if (state.SelectionText.empty())
        state.SearchCancelled = kSet;
    else
        state.LastSelectionText = state.SelectionText;
    answered_ = true;
    Close();
}

void SearchForm::ComFind_Click() {
    if (Selects()) {
        TakeSelectionText();
        return;
    }
    ListBox& documents = p_.window.txtFileName;
    if (TextFind.Text().empty()) return;
    if (!documents.Enabled()) {  // something runs that has the documents to itself
        Windows().Beep();
        return;
    }
    p_.state.SearchText = TextFind.Text();
    bool found = SearchPosition_ != p_.window.List1.Count() && SearchDoc();
    while (!found && documents.ListIndex() + 1 < documents.Count()) {
        documents.SetListIndex(documents.ListIndex() + 1);
        p_.loop.Yield();
        if (!Loaded()) return;
        SearchPosition_ = 0;
        found = SearchDoc();
    }
    if (found) return;
    SearchPosition_ = 0;
    Windows().ShowMessage("Finished Searching.");
    Close();
}

bool SearchForm::Matches(std::int32_t link) const {
    const LinkTable& links = p_.session.Links;
    if (!links.Has(link)) return false;
    const auto i = static_cast<std::size_t>(link);
    const std::string& text = p_.state.SearchMode == kSearchUrls ? links.LinkUrls[i] : links.LinkTexts[i];
    return Check1.Checked() ? Contains(Lower(text), Lower(TextFind.Text())) : Contains(text, TextFind.Text());
}

bool SearchForm::SearchDoc() {
    ListBox& rows = p_.window.List1;
    for (int row = SearchPosition_; row < rows.Count(); ++row) {
        if (!Matches(rows.ItemData(row))) continue;
        rows.SetListIndex(row);
        SearchPosition_ = row + 1;
        ComFind.SetCaption("Find Next");
        return true;
    }
    if (p_.state.SearchMode == kSearchUrls) SearchPosition_ = 0;
    return false;
}

}  // namespace qv
