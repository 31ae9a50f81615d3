// Reads a document from a file and fills the session's link table with what the scanner finds.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "controls/window_system.h"
#include "extract/link_resolver.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/http1.h"
#include "session/session.h"

namespace qv {

class HyperlinkImporter {
   public:
    struct Window {
        ProgressBar& ProgressBar1;
        Picture& Picture1;
        CommandButton& ComHide;
        ListBox& List1;
    };
    HyperlinkImporter(Files& files, EventLoop& loop, Clock& clock, HTTP1& http, Session& session, const Settings& settings,
                      RunFlags& flags, WindowSystem& windows, Window window)
        : files_(files),
          loop_(loop),
          clock_(clock),
          http_(http),
          session_(session),
          settings_(settings),
          flags_(flags),
          windows_(windows),
          window_(window) {}

    // Imports the session's ImportFilePath, whose address stands in the client's URL. With ResolveLinks other than 1 addresses
    // stay as they are written. Failed is set, and Message tells why, when the document can't be read or the user stops; the
    // links found so far stay in the table. Both are left alone on success. DocumentName is not used in the scan.
    void Import(std::int16_t ResolveLinks, Flag& Failed, std::string& Message, const std::string& DocumentName);

   private:
    bool OpenPage(std::string& page, Flag& failed, std::string& message);
    void PauseInInternetMode();
    bool HoldsIgnoredText(const std::string& page) const;
    void TakeBase(const std::string& page);
    DocumentBase MakeBase(std::int16_t resolveLinks);
    void SetLocalPlaces(DocumentBase& base);
    void Scan(const std::string& page, const DocumentBase& base, bool resolve, Flag& failed, std::string& message);

    Files& files_;
    EventLoop& loop_;
    Clock& clock_;
    HTTP1& http_;
    Session& session_;
    const Settings& settings_;
    RunFlags& flags_;
    WindowSystem& windows_;
    Window window_;
};

// The value of a page's `<base href=...>`, cleaned; nothing when it has none. Looks at the head alone. Pure.
std::optional<std::string> FindBaseAddress(std::string_view page);

}  // namespace qv
