#include "sitedb/site_database.h"

#include <algorithm>

namespace qv {

std::vector<SiteRecord> SiteDatabase::ReadAll() {
    std::string bytes;
    if (!files_.FileExists(Path())) files_.Write(Path(), "");
    files_.Read(Path(), bytes);
    std::vector<SiteRecord> records;
    for (std::size_t at = 0; at + SiteRecord::kSize <= bytes.size(); at += SiteRecord::kSize)
        records.emplace_back(std::string_view(bytes).substr(at, SiteRecord::kSize));
    return records;
}

std::optional<SiteRecord> SiteDatabase::Read(int number) {
    std::string bytes;
    if (!files_.FileExists(Path())) files_.Write(Path(), "");
    if (number < 1 || !files_.Read(Path(), bytes)) return std::nullopt;
    const std::size_t at = (static_cast<std::size_t>(number) - 1) * SiteRecord::kSize;
    if (at >= bytes.size()) return std::nullopt;
    return SiteRecord(std::string_view(bytes).substr(at));
}

void SiteDatabase::WriteAll(std::vector<SiteRecord>& records) {
    std::string bytes;
    bytes.reserve(records.size() * SiteRecord::kSize);
    for (SiteRecord& record : records) {
        record.SetText(field::FormatVersion, kRecordVersion);
        bytes += record.Bytes();
    }
    files_.Write(Path(), bytes);
}

int SiteDatabase::Find(const std::vector<SiteRecord>& records, std::int16_t entryMode, std::int16_t entryIsSite,
                       std::string_view key) {
    const auto found = std::find_if(records.begin(), records.end(), [&](const SiteRecord& record) {
        return record.IsOfKind(entryMode, entryIsSite) && record.Key() == key;
    });
    return found == records.end() ? 0 : static_cast<int>(found - records.begin()) + 1;
}

void SiteDatabase::DropEnterpriseList() { files_.Remove(session_.AppPath + "batchlst.zdt"); }

void SiteDatabase::ConvertSiteDatabase(const std::function<void(const std::string&)>& tell, const std::function<void()>& yield) {
    std::string bytes;
    if (!files_.FileExists(Path())) files_.Write(Path(), "");
    // A file shorter than one record of the previous layout holds nothing that could be converted.
    if (!files_.Read(Path(), bytes) || bytes.size() < kOldRecordSize) return;
    SiteRecord working(bytes);
    if (working.Text(field::FormatVersion) == kRecordVersion) return;
    tell("Converting Database, Please Wait...");
    ConvertFile("sitedata.zdt", static_cast<int>(bytes.size() / kOldRecordSize), working, yield);
    if (files_.FileExists(session_.AppPath + "preferen.zdt")) ConvertFile("preferen.zdt", 1, working, yield);
}

void SiteDatabase::ConvertFile(const std::string& name, int mostRecords, SiteRecord& working,
                               const std::function<void()>& yield) {
    std::string old;
    files_.Read(session_.AppPath + name, old);
    std::string converted;
    for (int i = 0; i < mostRecords; ++i) {
        const std::size_t at = static_cast<std::size_t>(i) * kOldRecordSize;
        AssignOldRecord(at < old.size() ? std::string_view(old).substr(at) : std::string_view(), working);
        converted += working.Bytes();
    }
    if (!files_.Write(session_.AppPath + "datatemp.zdt", converted)) return;
    yield();
    files_.Rename(session_.AppPath + "datatemp.zdt", session_.AppPath + name);
}

}  // namespace qv
