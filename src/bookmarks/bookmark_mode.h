// The Zephon Bookmarks mode: the bars of a companion bookmark manager stand for documents, and its bookmarks for links.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "bookmarks/bookmark_file.h"
#include "mainwindow/check_form.h"
#include "mainwindow/mode_commands.h"
#include "mainwindow/window_rules.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/other_windows.h"
#include "session/document_store.h"
#include "session/link_rows.h"
#include "session/session.h"

namespace qv {

class BookmarkMode {
   public:
    struct Parts {
        CheckForm& window;
        WindowRules& rules;
        ModeCommands& modes;
        Session& session;
        Settings& settings;
        RunFlags& flags;
        DocumentStore& store;
        LinkRows& rows;
        Files& files;
        OtherWindows& others;
        EventLoop& loop;
    };
    explicit BookmarkMode(Parts parts) : p_(parts) {}

    void MenuFileZephonMode_Click();  // asks for the companion's folder and loads its bars
    void MenuLinkDelete_Click();      // marks the current bookmark for deletion
    void MenuLinkView_Click();        // edits the current bookmark
    void UpdateBookmarks();           // writes the bars with changes back into the companion's files

    // Whether the companion has its window open. Nothing may be changed then; RefuseIfRunning says so.
    bool CompanionRunning() const;

    std::function<void()> txtFileName_Click;
    std::function<bool()> ShowEditForm;  // modally; whether it was left by its Okay

   private:
    static constexpr int kBars = 300;

    std::string File(const char* kind, int bar) const;  // the path, as the folder has the name
    bool RefuseIfRunning() const;
    void EnterMode();
    void LoadBars();
    std::int32_t LoadBookmarks(int bar, const std::string& title);
    void UpdateBar(int bar);
    void BarChanged();
    std::string* CurrentUrl();

    Parts p_;
    std::string BookmarkFolder_;
    std::int32_t BookmarksImported_ = 0;
    std::array<bool, kBars + 1> BookmarkBarChanged_{};
};

}  // namespace qv
