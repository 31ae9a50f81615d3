#include "reports/save_reports.h"

#include <algorithm>
#include <memory>

namespace qv {
namespace {

constexpr int kLinksBetweenTurns = 64;

const char* StatusText(ReportKind kind) {
    switch (kind) {
        case ReportKind::Text: return "Saving Text Reports...";
        case ReportKind::Ascii: return "Saving Ascii Reports...";
        case ReportKind::Html: break;
    }
    return "Saving HTML Report...";
}

}  // namespace

bool ReportSaver::SaveReports(const std::string& fileName, std::int32_t currentDocument, std::int16_t reportKind,
                              std::int16_t scope) {
    CheckForm& w = p_.window;
    w.SetPointer(Pointer::Wait);
    w.ProgressBar1.SetValue(0);
    w.ProgressBar1.SetVisible(true);
    w.Picture1.SetVisible(false);
    bool written = false;
    if (reportKind >= 0 && reportKind <= static_cast<std::int16_t>(ReportKind::Html))
        written = Write(fileName, static_cast<ReportKind>(reportKind), scope == 1 && p_.settings.SaveOneOnly != 0);
    if (currentDocument > 0) p_.store.LoadLinkList(currentDocument);
    w.SetPointer(Pointer::Default);
    w.ProgressBar1.SetValue(0);
    w.StatusBar1.SetText("Done.");
    return written;
}

bool ReportSaver::Write(const std::string& fileName, ReportKind kind, bool oneOnly) {
    CheckForm& w = p_.window;
    const ListBox& documents = w.txtFileName;
    const int first = oneOnly ? documents.ListIndex() : 0;
    const int last = oneOnly ? first : documents.Count() - 1;
    w.ProgressBar1.SetRange(0, std::max(last, 0));
    w.StatusBar1.SetText(StatusText(kind));
    const std::unique_ptr<FileReplacer> file = p_.files.Replace(fileName);
    ReportOutput output([&](std::string_view block) {
        if (file) file->Append(block);
    });
    const auto writer = MakeReportWriter(kind, p_.settings.QuestionableOnly != 0, output);
    writer->Begin({FileStamp(p_.clock.LocalTime()), Identifier()});
    std::string address;  // of the document before, should one's own not be readable
    for (int document = std::max(first, 0); document <= last; ++document) {
        w.ProgressBar1.SetValue(document);
        WriteDocument(*writer, kind, document, address);
        p_.loop.YieldIfDue();
    }
    writer->End();
    return file && file->Finish();
}

void ReportSaver::WriteDocument(ReportWriter& writer, ReportKind kind, int document, std::string& address) {
    const std::int32_t number = p_.window.txtFileName.ItemData(document);
    if (number <= 0) return;
    p_.store.LoadLinkList(number);
    const std::string entry = p_.window.txtFileName.Text(document);
    if (kind != ReportKind::Text) address = p_.store.ReadAddress(number).value_or(address);
    // The rows are the report's own meanwhile, whatever a handler of some event does to those of the session.
    const LinkTable links = std::move(p_.session.Links);
    p_.session.Links.Clear();
    int untilTurn = kLinksBetweenTurns;
    writer.Document({entry, address, links}, [&] {
        if (--untilTurn > 0) return;
        untilTurn = kLinksBetweenTurns;
        p_.loop.YieldIfDue();
    });
}

void ReportSaver::MenuReportsCopy_Click() {
    CheckForm& w = p_.window;
    w.SetPointer(Pointer::Wait);
    w.LabelInd.SetCaption("Scanning Documents...");
    const FileResult result = CopyReport();
    w.ProgressBar1.SetValue(0);
    w.Picture1.SetVisible(false);
    w.LabelInd.SetCaption("Done.");
    w.SetPointer(Pointer::Default);
    if (!result) w.Windows().ShowMessage(result.text);
}

// A document without a links file has no links.
FileResult ReportSaver::CopyReport() {
    const ListBox& documents = p_.window.txtFileName;
    const std::int32_t number = documents.ItemData(documents.ListIndex());
    const ReportTitle title{ClipboardStamp(p_.clock.LocalTime()), Identifier()};
    if (number <= 0) {
        p_.window.Windows().SetClipboard(ClipboardReport(title, nullptr));
        return {};
    }
    FileResult loaded = p_.store.LoadLinkList(number);
    if (!loaded && p_.store.HasLinkList(number)) return loaded;
    const ReportDocument document{documents.Text(documents.ListIndex()), "", p_.session.Links};
    p_.window.Windows().SetClipboard(ClipboardReport(title, &document));
    return {};
}

}  // namespace qv
