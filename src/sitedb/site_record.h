// The record of a site or document: 7514 bytes with all that is known of it and every setting with which it is opened,
// checked and reported. The same record holds the program's defaults. It is kept as its bytes: fields follow one another
// without padding, texts are blank-padded, numbers are 16-bit little-endian.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "session/flags.h"

namespace qv {

struct TextField {
    std::size_t offset;
    std::size_t width;  // bytes
};
struct NumberField {
    std::size_t offset;
};

// Where the fields lie. Reader and writer share this table.
namespace field {
inline constexpr TextField SiteUrl{0, 600};
inline constexpr TextField SiteFileName{600, 256};
inline constexpr TextField SiteFolder{856, 256};
inline constexpr NumberField EntryMode{1112};
inline constexpr NumberField EntryIsSite{1114};
inline constexpr NumberField IncludeImages{1116};
inline constexpr NumberField IgnoreJavaScript{1118};
inline constexpr NumberField FollowRedirects{1120};
inline constexpr NumberField CheckFtpLinks{1122};
inline constexpr TextField DocumentTypes{1124, 1000};
inline constexpr TextField IgnoreOpenPaths{2124, 1000};
inline constexpr NumberField HttpTimeout{3124};
inline constexpr NumberField UseProxy{3126};
inline constexpr TextField ProxyServerName{3128, 256};
inline constexpr TextField ProxyPortText{3384, 10};
inline constexpr NumberField UseHttpAuthentication{3394};
inline constexpr TextField HttpUserName{3396, 30};
inline constexpr TextField HttpPassword{3426, 20};
inline constexpr TextField FtpUserName{3446, 30};
inline constexpr TextField FtpPassword{3476, 50};
inline constexpr NumberField FtpTimeout{3526};
inline constexpr TextField IgnoreLinkPaths{3528, 150};
inline constexpr TextField FormatVersion{3678, 20};
inline constexpr TextField UserAgent{6514, 250};
inline constexpr NumberField SiteOpenMode{6764};
inline constexpr NumberField UseProxyAuthentication{6766};
inline constexpr TextField ProxyUserName{6768, 30};
inline constexpr TextField ProxyPassword{6798, 40};
inline constexpr NumberField MakeTextReport{6838};
inline constexpr NumberField MakeAsciiReport{6840};
inline constexpr NumberField MakeHtmlReport{6842};
inline constexpr TextField ReportFolder{6844, 255};
inline constexpr NumberField QuestionableOnly{7099};
inline constexpr NumberField EmailReports{7101};
inline constexpr NumberField CopyMeOnReports{7103};
inline constexpr std::array<TextField, 3> ReportAddresses = {{{7105, 60}, {7165, 60}, {7225, 60}}};
inline constexpr NumberField AutoReportsAfterCheck{7285};
// Slots 1 to 10 hold the texts that make a document ignored; slot 0 is never used.
constexpr TextField IgnoreText(std::size_t slot) { return {3698 + 256 * slot, 256}; }
}  // namespace field

inline constexpr std::size_t kIgnoreTextSlots = 10;
inline constexpr const char* kRecordVersion = "Quorvantis 5.0";
inline constexpr const char* kDefaultDocumentTypes = " .htm .html .shtml .asp .aspx .php .cfm .cfml .adp .nsf ";
inline constexpr const char* kDefaultIgnoreOpenPaths = " /cgi/ /cgi-bin/ /cgi-win/ ";
inline constexpr const char* kDefaultIgnoreLinkPaths = " /banners/ ";
inline constexpr const char* kDefaultFtpUserName = "anonymous";
inline constexpr const char* kDefaultFtpPassword = "guest@quorvantis.local";
inline constexpr std::int16_t kDefaultTimeout = 60;

class SiteRecord {
   public:
    static constexpr std::size_t kSize = 7514;

    SiteRecord() : bytes_(kSize, '\0') {}
    // A record of these bytes; what is missing is zero, what is too much is dropped.
    explicit SiteRecord(std::string_view bytes);

    const std::string& Bytes() const { return bytes_; }

    // The text without blanks (and zero bytes, in fields that nobody has set) at both ends.
    std::string Text(TextField f) const;
    std::string_view RawText(TextField f) const { return std::string_view(bytes_).substr(f.offset, f.width); }
    // Cut to whole characters that fit, and blank-padded.
    void SetText(TextField f, std::string_view text);
    std::int16_t Number(NumberField f) const;
    void SetNumber(NumberField f, std::int16_t value);
    bool IsSet(NumberField f) const { return Number(f) != 0; }

    std::string SiteUrl() const { return Text(field::SiteUrl); }
    std::string SiteFileName() const { return Text(field::SiteFileName); }
    std::string SiteFolder() const { return Text(field::SiteFolder); }

    // What the entry is known by, as its kind says.
    std::string Key() const;
    bool IsOfKind(std::int16_t entryMode, std::int16_t entryIsSite) const;

   private:
    std::string bytes_;
};

// The record of a fresh preferen.zdt.
SiteRecord DefaultRecord(const std::string& appPath);

// Gives the report fields of a record from before they had content their defaults: `reportFolder` is the folder in force.
// Whether the record was mended.
bool RepairReportFields(SiteRecord& record, const std::string& reportFolder);

// The previous layout, 2326 bytes, is only ever read: its fields are assigned to a working record, and what it doesn't have
// stays as it is there. `old` may be short.
inline constexpr std::size_t kOldRecordSize = 2326;
void AssignOldRecord(std::string_view old, SiteRecord& working);

}  // namespace qv
