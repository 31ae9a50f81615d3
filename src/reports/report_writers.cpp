#include "reports/report_writers.h"

#include <array>

#include "session/link_rows.h"
#include "text/basic_text.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr std::size_t kBlock = 128 * 1024;
constexpr const char* kEqualSigns = "=====================================================================";
constexpr const char* kHyphens = "  -------------------------------------------------------------------";

std::string Stamp(const std::tm& time, const char* format) {
    std::array<char, 128> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &time)};
}

struct Counts {
    long long total = 0;
    long long passed = 0;
    long long Questionable() const { return total - passed; }
};

void DocumentHead(ReportOutput& out, std::string_view entry) {
    out.Line(kEqualSigns);
    out.Line();
    out.Line("Document: ", Trim(entry));
    out.Line();
    out.Line("  Status          Link Text                      Link URL");
    out.Line(kHyphens);
}

void DocumentFoot(ReportOutput& out, const Counts& counts) {
    if (counts.Questionable() == 0) out.Line("   All Links Passed.");
    out.Line(kHyphens);
    out.Line("  Passed       :", PrintForm(counts.passed));
    out.Line("  Questionable :", PrintForm(counts.Questionable()));
    out.Line("  Total Checked:", PrintForm(counts.total), " Links.");
    out.Line();
    out.Line();
}

void Totals(ReportOutput& out, const Counts& counts) {
    out.Line(" Total Links Passed       :", PrintForm(counts.passed));
    out.Line(" Total Links Questionable :", PrintForm(counts.Questionable()));
    out.Line(" Total Links All Documents:", PrintForm(counts.total));
}

// The head comes with the first row, if it hasn't come yet, and the foot only behind a head.
Counts TextDocument(ReportOutput& out, const ReportDocument& document, bool questionableOnly, const std::function<void()>& afterLink) {
    Counts counts;
    bool headed = !questionableOnly;
    if (headed) DocumentHead(out, document.entry);
    for (std::int32_t link = 1; link <= document.links.LinkCount; ++link) {
        const bool passes = Passes(document.links.LinkFlags[static_cast<std::size_t>(link)].Status);
        ++counts.total;
        counts.passed += passes ? 1 : 0;
        if (!passes || !questionableOnly) {
            if (!headed) DocumentHead(out, document.entry);
            headed = true;
            out.Open().append("  ");
            BuildLinkRowText(document.links, link, out.Open());
            out.EndLine();
        }
        if (afterLink) afterLink();
    }
    if (headed) DocumentFoot(out, counts);
    return counts;
}

class TextReport : public ReportWriter {
   public:
    TextReport(bool questionableOnly, ReportOutput& out) : questionableOnly_(questionableOnly), out_(out) {}
    void Begin(const ReportTitle& title) override {
        for (int i = 0; i < 3; ++i) out_.Line();
        out_.Line(" Zephon Quorvantis Validation Report");
        out_.Line(" Report Generated: ", title.stamp);
        out_.Line(" Report Identifier: ", title.identifier);
        out_.Line();
    }
    void Document(const ReportDocument& document, const std::function<void()>& afterLink) override {
        const Counts counts = TextDocument(out_, document, questionableOnly_, afterLink);
        all_.total += counts.total;
        all_.passed += counts.passed;
    }
    void End() override {
        Totals(out_, all_);
        out_.Line(kEqualSigns);
        out_.Line(kEqualSigns);
        out_.Line();
        out_.Flush();
    }

   private:
    bool questionableOnly_;
    ReportOutput& out_;
    Counts all_;
};

// Values go in raw: a quote or a comma inside of one is the reader's business.
class AsciiReport : public ReportWriter {
   public:
    AsciiReport(bool questionableOnly, ReportOutput& out) : questionableOnly_(questionableOnly), out_(out) {}
    void Begin(const ReportTitle&) override { out_.Line(R"("DOCUMENT","LINKNMBR","STATUS","LINKTEXT","LINKURL")"); }
    void Document(const ReportDocument& document, const std::function<void()>&) override {
        for (std::size_t i = 1; i < document.links.LinkTexts.size(); ++i) {
            const std::string_view status = document.links.LinkFlags[i].TrimmedStatus();
            if (questionableOnly_ && Passes(status)) continue;
            out_.Line("\"", document.address, "\",\"", std::to_string(i), "\",\"", status, "\",\"",
                      Trim(document.links.LinkTexts[i]), "\",\"", Trim(document.links.LinkUrls[i]), "\"");
        }
    }
    void End() override { out_.Flush(); }

   private:
    bool questionableOnly_;
    ReportOutput& out_;
};

bool AllPass(const LinkTable& links) {
    for (std::size_t i = 1; i < links.LinkFlags.size(); ++i)
        if (!Passes(links.LinkFlags[i].Status)) return false;
    return true;
}

// A row without a status only names something: it has no anchor, and none of the filters leaves it out.
void HtmlRow(const LinkTable& links, std::int32_t link, bool questionableOnly, ReportOutput& out) {
    const auto i = static_cast<std::size_t>(link);
    const std::string_view status = links.LinkFlags[i].TrimmedStatus();
    const std::string_view text = Trim(links.LinkTexts[i]);
    const std::string_view url = Trim(links.LinkUrls[i]);
    if (status.empty() ? text.empty() : questionableOnly && Passes(status)) return;
    std::string& row = out.Open();
    if (status.empty())
        row.append("<TR><TD></TD><TD WIDTH=10%>");
    else
        row.append("<TR><TD WIDTH=4%> ").append(status).append(" </TD><TD WIDTH=10%>");
    AppendNumberedCell(row, link, text, 33, 30, "...");
    if (status.empty())
        out.Line("</TD><TD>", url, "</TD></TR>");
    else
        out.Line("</TD><TD WIDTH=86%><A HREF=\"", url, "\" TARGET=\"_blank\">", url, "</A></TD></TR>");
}

// Nothing is escaped: texts and addresses stand as they came.
class HtmlReport : public ReportWriter {
   public:
    HtmlReport(bool questionableOnly, ReportOutput& out) : questionableOnly_(questionableOnly), out_(out) {}
    void Begin(const ReportTitle& title) override {
        out_.Line("<HTML>");
        out_.Line("<HEAD><TITLE>Zephon Quorvantis Validation Report</TITLE>");
        out_.Line("</HEAD>");
        out_.Line("<BODY>");
        out_.Line("<P><FONT SIZE=5>Zephon Quorvantis Validation Report</FONT><BR>");
        out_.Line("Report Generated: <B>", title.stamp);
        out_.Line("</B><BR> Report Identifier: <B>", title.identifier, "</B><P>");
    }
    void Document(const ReportDocument& document, const std::function<void()>&) override {
        if (WriteHtmlDocument(document, questionableOnly_, out_)) written_ = true;
    }
    void End() override {
        if (!written_) out_.Line("<P><UL><LI>All links OK.</UL>");
        for (const char* line : {"<P>End Report", "<P><HR>", "</BODY>", "</HTML>"}) out_.Line(line);
        out_.Flush();
    }

   private:
    bool questionableOnly_;
    ReportOutput& out_;
    bool written_ = false;
};

}  // namespace

ReportOutput::ReportOutput(std::function<void(std::string_view)> pass) : pass_(std::move(pass)) {
    block_.reserve(kBlock + kBlock / 8);
}

void ReportOutput::EndLine() {
    block_.append("\r\n");
    if (block_.size() >= kBlock) Flush();
}

bool WriteHtmlDocument(const ReportDocument& document, bool questionableOnly, ReportOutput& out) {
    if (questionableOnly && AllPass(document.links)) return false;
    out.Line("<P><B>Web Page: </B><I><A HREF=\"", document.address, "\" TARGET=\"_blank\">", document.address, "</A></I>");
    out.Line("<P><TABLE WIDTH=2500 CELLPADDING=2><TR><TD WIDTH=4%><B>Link Status</B></TD><TD WIDTH=10%><B>Link Text</B></TD>"
             "<TD WIDTH=87%><B>Link URL</B></TD></TR>");
    for (std::int32_t link = 1; link <= document.links.LinkCount; ++link) HtmlRow(document.links, link, questionableOnly, out);
    out.Line("</TABLE>");
    return true;
}

std::string NameStamp(const std::tm& time) { return Stamp(time, "%d-%m-%y_%I.%M.%S") + (time.tm_hour < 12 ? "AM" : "PM"); }

void ReportOutput::Flush() {
    if (!block_.empty()) pass_(block_);
    block_.clear();
}

std::string FileStamp(const std::tm& time) { return Stamp(time, "%B %d, %Y - %H:%M:%S"); }
std::string ClipboardStamp(const std::tm& time) { return Stamp(time, "%b %d,%Y - %H:%M:%S"); }

bool Passes(std::string_view status) {
    const std::string_view front = TrimLeft(status).substr(0, 2);
    return front == "OK" || front == "NA";
}

std::unique_ptr<ReportWriter> MakeReportWriter(ReportKind kind, bool questionableOnly, ReportOutput& output) {
    switch (kind) {
        case ReportKind::Text: return std::make_unique<TextReport>(questionableOnly, output);
        case ReportKind::Ascii: return std::make_unique<AsciiReport>(questionableOnly, output);
        case ReportKind::Html: return std::make_unique<HtmlReport>(questionableOnly, output);
    }
    return nullptr;
}

std::string ClipboardReport(const ReportTitle& title, const ReportDocument* document) {
    std::string text;
    ReportOutput out([&](std::string_view block) { text.append(block); });
    out.Line();
    out.Line(" Web Page Link Validation Report");
    out.Line(" (", title.stamp, ")");
    out.Line(" ", title.identifier);
    out.Line();
    Counts counts;
    if (document != nullptr) counts = TextDocument(out, *document, true, nullptr);
    Totals(out, counts);
    out.Flush();
    return text;
}

}  // namespace qv
