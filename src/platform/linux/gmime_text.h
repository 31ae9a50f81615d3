// What GMime gives out, as our own texts and lives.
#pragma once

#include <gmime/gmime.h>

#include <string>

namespace qv {

// A text of GLib's, taken over and freed; empty for null.
inline std::string TakeText(char* text) {
    std::string taken(text == nullptr ? "" : text);
    g_free(text);
    return taken;
}

// The library has to be started before its first use; more often does nothing.
inline void StartGmime() {
    static const bool started = (g_mime_init(), true);
    static_cast<void>(started);
}

// How headers are written out: lines end in CR LF.
class FormatOptions {
   public:
    FormatOptions() : options_(g_mime_format_options_new()) {
        g_mime_format_options_set_newline_format(options_, GMIME_NEWLINE_FORMAT_DOS);
    }
    ~FormatOptions() { g_mime_format_options_free(options_); }
    FormatOptions(const FormatOptions&) = delete;
    FormatOptions& operator=(const FormatOptions&) = delete;
    GMimeFormatOptions* Get() const { return options_; }

   private:
    GMimeFormatOptions* options_;
};

}  // namespace qv
