// The editor of the site database.
#pragma once

#include "desktop/form_window.h"
#include "sitedb/wizard_form.h"

namespace qv {

class WizardFormView : public FormWindow {
   public:
    WizardFormView(WizardForm& form, QWidget* parent);

   private:
    QWidget* AddressPage(WizardForm& form);
    QWidget* OpenPage(WizardForm& form);
    QWidget* SiteOpenBox(WizardForm& form);
    QWidget* AuthorizationPage(WizardForm& form);
    QWidget* FtpBox(WizardForm& form);
    QWidget* HttpBox(WizardForm& form);
    QWidget* ProxyBox(WizardForm& form);
    QWidget* ReportsPage(WizardForm& form);
    QWidget* ReportSettingsBox(WizardForm& form);
    QLineEdit* Narrow(TextBox& box);  // for a short number
};

}  // namespace qv
