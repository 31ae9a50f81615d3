// The commands that mark links in all documents, and those that put a link on the clipboard or take an address from the browser.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "mainwindow/browser.h"
#include "mainwindow/check_form.h"
#include "mainwindow/search_form.h"
#include "mainwindow/window_rules.h"
#include "platform/event_loop.h"
#include "session/document_store.h"
#include "session/session.h"

namespace qv {

class LinkCommands {
   public:
    struct Parts {
        CheckForm& window;
        WindowRules& rules;
        Session& session;
        const Settings& settings;
        RunFlags& flags;
        DocumentStore& store;
        SearchState& search;
        Browser& browser;
        EventLoop& loop;
    };
    explicit LinkCommands(Parts parts) : p_(parts) {}

    // Over all documents: each is loaded, changed and saved, and the good addresses are forgotten. Controls are held meanwhile.
    void MenuEditSelectAll_Click();
    void MenuEditSelectNone_Click();
    void MenuEditContain_Click() { SelectByText(kSelectContaining); }
    void MenuEditDontContain_Click() { SelectByText(kSelectOthers); }
    void MenuEditReset_Click();

    // Over the selected document: the marks up to the current row, or from it on, are toggled.
    void MenuEditAbove_Click() { Toggle(true); }
    void MenuEditBelow_Click() { Toggle(false); }

    void MenuEditCopy_Click();
    void MenuEditCopyLink_Click();
    void MenuEditPaste_Click();

    std::function<void()> txtFileName_Click;
    std::function<void()> ShowSearchForm;  // modally, unloading one that is open

   private:
    using Step = std::function<void(LinkTable& links, std::size_t link)>;
    void OverAllDocuments(const Step& step, bool hidesList);
    void SelectByText(std::int16_t searchMode);
    bool IsHeadingRow(const LinkTable& links, std::size_t link) const;
    void Toggle(bool above);
    void ToggleRow(int row);

    Parts p_;
};

}  // namespace qv
