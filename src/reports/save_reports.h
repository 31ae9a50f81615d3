// Writes the link rows of the opened documents into a report file, and those of the selected one to the clipboard. A report shows
// the rows as the cache has them; nothing is asked again.
#pragma once

#include <cstdint>
#include <string>

#include "mainwindow/check_form.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "reports/report_writers.h"
#include "session/document_store.h"
#include "session/session.h"

namespace qv {

class ReportSaver {
   public:
    struct Parts {
        CheckForm& window;
        Session& session;
        const Settings& settings;
        DocumentStore& store;
        Files& files;
        EventLoop& loop;
        const Clock& clock;
    };
    explicit ReportSaver(Parts parts) : p_(parts) {}

    // Creates or replaces the file. `currentDocument` is the number of the document that is selected: its links are in memory again
    // afterwards. With `scope` 1 the setting SaveOneOnly restricts the report to it. A kind that there isn't writes nothing. Events
    // are handled meanwhile, so the caller keeps other commands from starting. Failures are passed over; the old file stays then,
    // and the result is false.
    bool SaveReports(const std::string& fileName, std::int32_t currentDocument, std::int16_t reportKind, std::int16_t scope);

    // The questionable links of the selected document. A links file that is there and can't be read ends it with a message.
    void MenuReportsCopy_Click();

   private:
    std::string Identifier() const { return p_.session.SiteUrl + p_.session.SiteFileName; }
    bool Write(const std::string& fileName, ReportKind kind, bool oneOnly);
    void WriteDocument(ReportWriter& writer, ReportKind kind, int document, std::string& address);
    FileResult CopyReport();

    Parts p_;
};

}  // namespace qv
