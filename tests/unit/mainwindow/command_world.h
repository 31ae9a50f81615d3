// The main window with documents in a cache in memory, for tests of its commands.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <optional>

#include "controls/window_system.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_files.h"
#include "fakes/fake_loop.h"
#include "fakes/fake_programs.h"
#include "fakes/fake_windows.h"
#include "mainwindow/browser.h"
#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "session/document_store.h"
#include "session/link_rows.h"

namespace qv {

struct CommandWorld : testing::Test, WindowListener {
    FakeClock clock;
    FakeLoop loop{clock};
    FakeFiles files;
    FakePrograms programs;
    FakeWindows others;
    RunFlags flags;
    Session session;
    Settings settings;
    WindowSystem windows{[this] {
        if (user && !windows.Forms().empty()) user();
    }};
    CheckForm window{windows};
    DocumentStore store{files, session};
    WindowRules rules{window, session, settings, programs, store};
    LinkRows rows{window.List1, window.FontNamePicture, session, settings, flags};
    Browser browser{{windows, settings, programs, others, loop, clock}};
    std::function<void()> user;  // what happens while a modal form waits
    std::vector<std::string> messages;
    int beeps = 0;

    CommandWorld() {
        session.AppPath = "\\home\\";
        window.SetVisible(true);
        windows.Listen(this);
        window.txtFileName.Click = [this] { Show(); };
    }
    void FormShown(Form&) override {}
    void FormClosed(const Form&) override {}
    void MessageShown(const MessageRequest& request) override {
        messages.push_back(request.text);
        windows.Answer(request.defaultButton);
    }
    void DialogShown(const FileDialogRequest&) override { windows.Answer(std::nullopt); }
    void Beeped() override { ++beeps; }

    void Show() {
        store.LoadLinkList(window.txtFileName.ItemData(window.txtFileName.ListIndex()));
        window.List1.Clear();
        rows.AddAllRows();
        window.List1.SetListIndex(0);
    }
    // A document in the cache: text, address, mark, status and path of each link. The first one is shown.
    using Row = std::array<std::string, 5>;
    void Document(std::int32_t number, const std::vector<Row>& links) {
        std::string bytes;
        for (const Row& link : links)
            for (const auto& field : link) bytes += field + "\r\n";
        files.files[Path(number)] = bytes;
        window.txtFileName.AddItem("doc" + std::to_string(number), number);
        window.txtFileName.SetListIndex(0);
    }
    static std::string Path(std::int32_t number) { return "\\home\\cache\\xlf0000" + std::to_string(number) + ".lks"; }
    // One letter a link: "X" marked, "." not.
    std::string Marks(std::int32_t number) {
        LinkTable links;
        ParseLinks(files.files[Path(number)], links);
        std::string marks;
        for (std::size_t i = 1; i < links.LinkFlags.size(); ++i) marks += links.LinkFlags[i].Marked() ? 'X' : '.';
        return marks;
    }
};

}  // namespace qv
