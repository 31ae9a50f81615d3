// The window that shows the log of an operation.
#pragma once

#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "session/session.h"

namespace qv {

class ReportForm : public Form {
   public:
    struct Parts {
        WindowSystem& windows;
        Session& session;
        const RunFlags& flags;
        const ListBox& documents;
        StatusBar& status;
    };
    explicit ReportForm(Parts parts);

    Label Label1{*this, "Label1", "Event Log:"};
    Label Label2{*this, "Label2"};
    TextBox Text1{*this, "Text1"};
    CommandButton Command2{*this, "Command2", "View D&ocument Reports"};
    CommandButton ComCopy{*this, "ComCopy", "C&opy Log"};
    CommandButton Command1{*this, "Command1", "&Close"};

    std::function<void()> ShowDocumentReports;

   private:
    void Form_Load();

    Parts p_;
};

}  // namespace qv
