// The forms of a report: Text, comma-delimited Ascii, HTML, and the one for the clipboard. Pure: rows in, bytes out.
#pragma once

#include <cstdint>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "session/link_table.h"

namespace qv {

enum class ReportKind : std::int16_t { Text = 0, Ascii = 1, Html = 2 };

// Collects lines and passes them on in blocks of about 128 KiB.
class ReportOutput {
   public:
    explicit ReportOutput(std::function<void(std::string_view)> pass);

    template <class... Parts>
    void Line(const Parts&... parts) {
        const std::size_t before = block_.size();
        block_.resize((before + ... + std::string_view(parts).size()));
        [[maybe_unused]] char* to = block_.data() + before;
        ((to += std::string_view(parts).copy(to, std::string_view::npos)), ...);
        EndLine();
    }
    // For a line that is put together piece by piece.
    std::string& Open() { return block_; }
    void EndLine();
    void Flush();

   private:
    std::function<void(std::string_view)> pass_;
    std::string block_;
};

// What stands above a report.
struct ReportTitle {
    std::string stamp;       // date and time
    std::string identifier;  // which site or document it is about
};

// Date and time as the files and the clipboard have them ("November 21, 2026 - 09:05:00", "Nov 21,2026 - 09:05:00"); the month's
// name as the process's locale has it.
std::string FileStamp(const std::tm& time);
std::string ClipboardStamp(const std::tm& time);

// One document: its name in the list, its address, and its links.
struct ReportDocument {
    std::string_view entry;
    std::string_view address;
    const LinkTable& links;
};

// Whether a status counts as passed; a blank one doesn't.
bool Passes(std::string_view status);

// Writes one report: Begin, each document in order, End. The output is flushed at the end.
class ReportWriter {
   public:
    virtual ~ReportWriter() = default;
    virtual void Begin(const ReportTitle& title) = 0;
    // `afterLink` is called behind each link of a long document, so that others get their turn; never for some forms.
    virtual void Document(const ReportDocument& document, const std::function<void()>& afterLink) = 0;
    virtual void End() = 0;
};
std::unique_ptr<ReportWriter> MakeReportWriter(ReportKind kind, bool questionableOnly, ReportOutput& output);

// A document's part of an HTML report: its address and the table of its links. False, and nothing written, when only questionable
// links are wanted and there is none.
bool WriteHtmlDocument(const ReportDocument& document, bool questionableOnly, ReportOutput& output);

// Date and time of a log's name ("21-11-26_09.05.00AM").
std::string NameStamp(const std::tm& time);

// The questionable links of one document, for the clipboard. Without a document there are the title and totals of 0.
std::string ClipboardReport(const ReportTitle& title, const ReportDocument* document);

}  // namespace qv
