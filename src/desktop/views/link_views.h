// The small windows around the link list.
#pragma once

#include "desktop/form_window.h"
#include "mainwindow/edit_form.h"
#include "mainwindow/search_form.h"

namespace qv {

class SearchFormView : public FormWindow {
   public:
    SearchFormView(SearchForm& form, QWidget* parent);
};

class EditFormView : public FormWindow {
   public:
    EditFormView(EditForm& form, QWidget* parent);
};

}  // namespace qv
