// The window that finds a text in the links of all documents, and that asks for the text of the commands that select links.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "controls/form.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "mainwindow/check_form.h"
#include "platform/event_loop.h"
#include "session/session.h"

namespace qv {

enum SearchModeValue : std::int16_t { kSearchUrls = 1, kSearchTexts = 2, kSelectContaining = 3, kSelectOthers = 4 };

// What it keeps from one time to the next, and what it leaves for the command that showed it.
struct SearchState {
    std::int16_t SearchMode = kSearchUrls;  // set before it is shown
    std::string SearchText;
    std::string SelectionText;
    std::string LastSelectionText;
    Flag SearchCancelled = kClear;
    Flag SearchFormOpen = kClear;
};

class SearchForm : public Form {
   public:
    struct Parts {
        CheckForm& window;
        const Session& session;
        SearchState& state;
        EventLoop& loop;
    };
    explicit SearchForm(Parts parts);

    Label Label1{*this, "Label1", "Text to Find:"};
    TextBox TextFind{*this, "TextFind"};
    CheckBox Check1{*this, "Check1", "&Ignore Case"};
    CommandButton ComFind{*this, "ComFind", "&Find"};
    CommandButton ComCancel{*this, "ComCancel", "&Cancel"};

   private:
    void Form_Load();
    void ComFind_Click();
    void TakeSelectionText();
    bool SearchDoc();  // false: the document holds no further match
    bool Matches(std::int32_t link) const;
    bool Selects() const { return p_.state.SearchMode >= kSelectContaining; }

    Parts p_;
    int SearchPosition_ = 0;  // the row behind the last match
    bool answered_ = false;   // left with a text or without one, but not cancelled
};

}  // namespace qv
