#include "sitedb/preferences.h"

#include "sitedb/entry_settings.h"

namespace qv {

void Preferences::ReadAtStart() {
    std::string bytes;
    files_.Read(Path(), bytes);
    if (!bytes.empty()) {
        record_ = SiteRecord(bytes);
        return;
    }
    record_ = DefaultRecord(session_.AppPath);
    Write();
}

SiteRecord Preferences::Stored() const {
    std::string bytes;
    files_.Read(Path(), bytes);
    return bytes.empty() ? record_ : SiteRecord(bytes);
}

// Only the first record counts; whatever stands behind it in the file stays there.
void Preferences::Write() {
    std::string bytes;
    files_.Read(Path(), bytes);
    const std::string rest = bytes.size() > SiteRecord::kSize ? bytes.substr(SiteRecord::kSize) : std::string();
    files_.Write(Path(), record_.Bytes() + rest);
}

void Preferences::ApplyPreferences() {
    CopyCommonSettings(record_, settings_);
    session_.SiteUrl = record_.SiteUrl();
    session_.SiteFileName = record_.SiteFileName();
    session_.SiteFolder = record_.SiteFolder();
    settings_.IgnoreTextList.clear();
}

}  // namespace qv
