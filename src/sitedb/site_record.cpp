#include "sitedb/site_record.h"

#include "session/settings.h"
#include "text/basic_text.h"
#include "text/characters.h"

namespace qv {
namespace {

std::string_view TrimPadding(std::string_view text) {
    constexpr std::string_view kPadding("\0 ", 2);
    const auto first = text.find_first_not_of(kPadding);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kPadding) - first + 1);
}

// A field of the previous layout and the field that takes it over.
struct OldText {
    TextField old;
    TextField now;
};
struct OldNumber {
    std::size_t old;
    NumberField now;
};
constexpr std::array<OldText, 11> kOldTexts = {{{{0, 600}, field::SiteUrl},
                                                {{600, 256}, field::SiteFileName},
                                                {{856, 256}, field::SiteFolder},
                                                {{1224, 500}, field::IgnoreOpenPaths},
                                                {{1728, 256}, field::ProxyServerName},
                                                {{1984, 10}, field::ProxyPortText},
                                                {{1996, 30}, field::HttpUserName},
                                                {{2026, 20}, field::HttpPassword},
                                                {{2046, 30}, field::FtpUserName},
                                                {{2076, 50}, field::FtpPassword},
                                                {{2128, 150}, field::IgnoreLinkPaths}}};
constexpr std::array<OldNumber, 10> kOldNumbers = {{{1112, field::EntryMode},
                                                    {1114, field::EntryIsSite},
                                                    {1116, field::IncludeImages},
                                                    {1118, field::IgnoreJavaScript},
                                                    {1120, field::FollowRedirects},
                                                    {1122, field::CheckFtpLinks},
                                                    {1724, field::HttpTimeout},
                                                    {1726, field::UseProxy},
                                                    {1994, field::UseHttpAuthentication},
                                                    {2126, field::FtpTimeout}}};

std::int16_t NumberAt(std::string_view bytes, std::size_t offset) {
    const auto low = static_cast<unsigned char>(bytes[offset]);
    const auto high = static_cast<unsigned char>(bytes[offset + 1]);
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(low | (high << 8)));
}

}  // namespace

SiteRecord::SiteRecord(std::string_view bytes) : bytes_(bytes.substr(0, kSize)) { bytes_.resize(kSize, '\0'); }

std::string SiteRecord::Text(TextField f) const { return std::string(TrimPadding(RawText(f))); }

void SiteRecord::SetText(TextField f, std::string_view text) {
    std::string padded(FitBytes(text, f.width));
    padded.resize(f.width, ' ');
    bytes_.replace(f.offset, f.width, padded);
}

std::int16_t SiteRecord::Number(NumberField f) const { return NumberAt(bytes_, f.offset); }

void SiteRecord::SetNumber(NumberField f, std::int16_t value) {
    const auto bits = static_cast<std::uint16_t>(value);
    bytes_[f.offset] = static_cast<char>(bits & 0xFF);
    bytes_[f.offset + 1] = static_cast<char>(bits >> 8);
}

bool SiteRecord::IsOfKind(std::int16_t entryMode, std::int16_t entryIsSite) const {
    return Number(field::EntryMode) == entryMode && IsSet(field::EntryIsSite) == (entryIsSite != 0);
}

std::string SiteRecord::Key() const {
    if (IsSet(field::EntryIsSite)) return SiteUrl();
    return (Number(field::EntryMode) == kLocalMode ? SiteFolder() : SiteUrl()) + SiteFileName();
}

SiteRecord DefaultRecord(const std::string& appPath) {
    SiteRecord record;
    for (const TextField blank : {field::SiteUrl, field::SiteFileName, field::SiteFolder, field::ProxyServerName,
                                  field::ProxyPortText, field::HttpUserName, field::HttpPassword, field::UserAgent})
        record.SetText(blank, "");
    for (const NumberField on : {field::IncludeImages, field::IgnoreJavaScript, field::FollowRedirects, field::CheckFtpLinks})
        record.SetNumber(on, 1);
    record.SetText(field::DocumentTypes, kDefaultDocumentTypes);
    record.SetText(field::IgnoreOpenPaths, kDefaultIgnoreOpenPaths);
    record.SetText(field::IgnoreLinkPaths, kDefaultIgnoreLinkPaths);
    record.SetNumber(field::HttpTimeout, kDefaultTimeout);
    record.SetNumber(field::FtpTimeout, kDefaultTimeout);
    record.SetText(field::FtpUserName, kDefaultFtpUserName);
    record.SetText(field::FtpPassword, kDefaultFtpPassword);
    record.SetText(field::FormatVersion, kRecordVersion);
    for (std::size_t slot = 0; slot <= kIgnoreTextSlots; ++slot) record.SetText(field::IgnoreText(slot), "");
    record.SetNumber(field::MakeHtmlReport, kSet);
    record.SetNumber(field::QuestionableOnly, kSet);
    record.SetText(field::ReportFolder, appPath + "Reports\\");
    for (const TextField& address : field::ReportAddresses) record.SetText(address, "");
    return record;
}

bool RepairReportFields(SiteRecord& record, const std::string& reportFolder) {
    if (Contains(record.RawText(field::ReportFolder), "\\")) return false;
    record.SetText(field::ReportFolder, reportFolder);
    for (const TextField& address : field::ReportAddresses) record.SetText(address, "");
    for (const NumberField off : {field::AutoReportsAfterCheck, field::MakeTextReport, field::MakeAsciiReport,
                                  field::EmailReports, field::CopyMeOnReports})
        record.SetNumber(off, kClear);
    record.SetNumber(field::MakeHtmlReport, kSet);
    record.SetNumber(field::QuestionableOnly, kSet);
    return true;
}

void AssignOldRecord(std::string_view old, SiteRecord& working) {
    std::string bytes(old.substr(0, kOldRecordSize));
    bytes.resize(kOldRecordSize, '\0');
    const std::string_view whole = bytes;
    for (const OldText& text : kOldTexts) working.SetText(text.now, whole.substr(text.old.offset, text.old.width));
    for (const OldNumber& number : kOldNumbers) working.SetNumber(number.now, NumberAt(whole, number.old));
    working.SetText(field::DocumentTypes, kDefaultDocumentTypes);
    working.SetText(field::UserAgent, "");
    for (std::size_t slot = 1; slot <= kIgnoreTextSlots; ++slot) working.SetText(field::IgnoreText(slot), "");
    working.SetText(field::FormatVersion, kRecordVersion);
}

}  // namespace qv
