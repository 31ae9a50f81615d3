// Marks by hand, hiding of good rows, and the walk to documents with a questionable link.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "session/document_store.h"
#include "session/link_rows.h"
#include "session/session.h"

namespace qv {

class LinkMarks {
   public:
    struct Parts {
        CheckForm& window;
        WindowRules& rules;
        Session& session;
        const Settings& settings;
        RunFlags& flags;
        DocumentStore& store;
        LinkRows& rows;
    };
    explicit LinkMarks(Parts parts) : p_(parts) {}

    // The current row was toggled: its mark follows, and the document's links are saved.
    void List1_MouseDown();
    void List1_KeyUp();
    void List1_MouseMove();  // the tool tip: the current row's address

    void MenuLinkHide_Click();  // good rows are left out, or shown again
    // 1: the next document with a questionable link, 2: the previous one.
    // False: there was none, and the user was told.
    bool FindQuestionableDocument(std::int16_t direction);

    std::function<void()> txtFileName_Click;

   private:
    bool IsGroupRow(std::int32_t link) const;
    void TakeMark();
    using Rule = bool (*)(std::string_view trimmedStatus, bool persistentRedirectsOk);
    bool HoldsQuestionable(int document, Rule passes);  // loads its links
    int FindQuestionable(int first, int last, int step, Rule passes);
    void ShowFound(int document);
    void Refill();

    Parts p_;
};

}  // namespace qv
