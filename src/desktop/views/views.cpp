#include "desktop/views/views.h"

#include "desktop/views/check_form_view.h"
#include "desktop/views/config_form_view.h"
#include "desktop/views/default_form_view.h"
#include "desktop/views/email_form_view.h"
#include "desktop/views/enterprise_views.h"
#include "desktop/views/link_views.h"
#include "desktop/views/plain_view.h"
#include "desktop/views/report_views.h"
#include "desktop/views/small_views.h"
#include "desktop/views/wizard_form_view.h"

namespace qv {
namespace {

template <class FormType, class View>
FormWindow* Try(Form& form, QWidget* parent) {
    auto* known = dynamic_cast<FormType*>(&form);
    return known == nullptr ? nullptr : new View(*known, parent);
}

}  // namespace

FormWindow* MakeView(Form& form, QWidget* parent) {
    for (const auto attempt :
         {Try<CheckForm, CheckFormView>, Try<InitialForm, InitialFormView>, Try<TipForm, TipFormView>, Try<CodeForm, CodeFormView>,
          Try<ReportForm, ReportFormView>, Try<ConfigForm, ConfigFormView>, Try<WizardForm, WizardFormView>,
          Try<frmform, ReportOptionsView>, Try<ReportManagerForm, ReportManagerView>, Try<ReportSelectForm, ReportSelectView>,
          Try<EmailForm, EmailFormView>, Try<DefaultForm, DefaultFormView>, Try<SearchForm, SearchFormView>,
          Try<EditForm, EditFormView>, Try<BatchForm, BatchFormView>, Try<SelectForm, SelectFormView>,
          Try<ScheduleForm, ScheduleFormView>})
        if (FormWindow* view = attempt(form, parent)) return view;
    return new PlainView(form, parent);
}

}  // namespace qv
