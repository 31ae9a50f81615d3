#include "reports/report_options.h"

#include <array>

#include "text/lines.h"
#include "text/numbers.h"

namespace qv {
namespace {

// The flags in the order of their lines; the folder follows.
std::array<Flag*, 6> Flags(Settings& s) {
    return {&s.SaveTextReport, &s.SaveAsciiReport, &s.SaveHtmlReport, &s.SaveAllInOne, &s.SaveOneOnly, &s.QuestionableOnly};
}

std::string FilePath(const std::string& appPath) { return appPath + "reprtcfg.zdt"; }

}  // namespace

std::string ComposeReportOptions(const Settings& settings) {
    Settings copy = settings;
    LineWriter writer;
    for (const Flag* flag : Flags(copy)) writer.Line(PrintForm(*flag));
    return writer.Line(settings.ReportFolder).Bytes();
}

void ParseReportOptions(std::string_view bytes, Settings& settings) {
    LineReader reader(bytes);
    for (Flag* flag : Flags(settings))
        if (!reader.AtEnd()) *flag = LeadingInt16(reader.Next()).value_or(*flag);
    if (!reader.AtEnd()) settings.ReportFolder = std::string(reader.Next());
}

bool ReadReportOptions(const Files& files, const std::string& appPath, Settings& settings) {
    std::string bytes;
    if (!files.Read(FilePath(appPath), bytes)) return false;
    ParseReportOptions(bytes, settings);
    return true;
}

void WriteReportOptions(Files& files, const std::string& appPath, const Settings& settings) {
    files.Write(FilePath(appPath), ComposeReportOptions(settings));
}

}  // namespace qv
