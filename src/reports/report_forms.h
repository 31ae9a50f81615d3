// The three forms of a report file: what chooses each, how its file ends, and where its name is noted.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "reports/report_writers.h"
#include "session/session.h"

namespace qv {

struct FormOfReport {
    ReportKind kind;
    const char* suffix;
    Flag ReportSettings::*chosen;   // by the user, in the dialog
    Flag EntrySettings::*automatic;  // by the entry, at the end of a check
    std::vector<std::string> ReportLists::*names;
};

inline constexpr std::array<FormOfReport, 3> kFormsOfReport = {
    {{ReportKind::Text, "_text.txt", &ReportSettings::SaveTextReport, &EntrySettings::MakeTextReport, &ReportLists::TextReportNames},
     {ReportKind::Ascii, "_ascii.txt", &ReportSettings::SaveAsciiReport, &EntrySettings::MakeAsciiReport,
      &ReportLists::AsciiReportNames},
     {ReportKind::Html, "_html.htm", &ReportSettings::SaveHtmlReport, &EntrySettings::MakeHtmlReport,
      &ReportLists::HtmlReportNames}}};

}  // namespace qv
