#include "reports/report_form.h"

#include "controls/window_system.h"
#include "text/basic_text.h"

namespace qv {

ReportForm::ReportForm(Parts parts) : Form(parts.windows, "ReportForm", "Zephon Quorvantis"), p_(parts) {
    SetSize(560, 420);
    Text1.SetMultiLine(true);
    Text1.SetReadOnly(true);
    SetCancelButton(&Command1);
    Load = [this] { Form_Load(); };
    Unload = [this](bool&) { p_.session.ReportFormOpen = kClear; };
    ComCopy.Click = [this] { Windows().SetClipboard(Text1.Text()); };
    Command1.Click = [this] { Close(); };
    Command2.Click = [this] {
        if (ShowDocumentReports) ShowDocumentReports();
    };
}

// The title is cleared before it is shown: only that of a window without documents comes through.
void ReportForm::Form_Load() {
    p_.session.ReportFormOpen = kSet;
    Centre();
    p_.session.LogTitle.clear();
    if (p_.documents.Count() == 0) {
        p_.session.LogTitle = "Aborted.";
        p_.status.SetText("");
    }
    Label2.SetCaption(p_.session.LogTitle);
    Text1.SetText(Trim(p_.session.LogText).empty() ? "No Events." : p_.session.LogText);
    Command2.SetVisible(p_.flags.EnterpriseRunning != 0);
}

}  // namespace qv
