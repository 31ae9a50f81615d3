#include "mainwindow/edit_form.h"

#include "text/basic_text.h"

namespace qv {

EditForm::EditForm(Parts parts) : Form(parts.window.Windows(), "EditForm", "View Link"), p_(parts) {
    SetSize(560, 200);
    SetDefaultButton(&ComOkay);
    SetCancelButton(&ComCancel);
    TextFile.SetReadOnly(true);
    Label3.SetVisible(false);
    TextFile.SetVisible(false);
    Load = [this] { Form_Load(); };
    ComOkay.Click = [this] { ComOkay_Click(); };
    ComCancel.Click = [this] { Close(); };
}

void EditForm::Form_Load() {
    Centre();
    link_ = p_.window.List1.ItemData(p_.window.List1.ListIndex());
    if (!p_.session.Links.Has(link_)) return;
    const auto i = static_cast<std::size_t>(link_);
    const LinkTable& links = p_.session.Links;
    TextLink.SetText(links.LinkTexts[i]);
    TextURL.SetText(links.LinkUrls[i]);
    if (Trim(links.LinkPaths[i]).empty()) return;
    Label3.SetVisible(true);
    TextFile.SetVisible(true);
    TextFile.SetText(links.LinkPaths[i]);
}

// The links file isn't written here.
void EditForm::ComOkay_Click() {
    LinkTable& links = p_.session.Links;
    if (links.Has(link_)) {
        const auto i = static_cast<std::size_t>(link_);
        links.LinkTexts[i] = std::string(Trim(TextLink.Text()));
        links.LinkUrls[i] = std::string(Trim(TextURL.Text()));
        links.Touch();
        p_.rows.RefreshLinkRow(p_.window.List1.ListIndex());
    }
    okay_ = true;
    Close();
}

}  // namespace qv
