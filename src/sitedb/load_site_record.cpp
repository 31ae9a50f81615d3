#include "sitedb/load_site_record.h"

#include "sitedb/entry_settings.h"
#include "text/basic_text.h"

namespace qv {

void SiteRecordLoader::LoadSiteRecord(int number, int modeSwitch) {
    const auto record = sites_.Read(number);
    if (!record) return;
    CopyCommonSettings(*record, settings_);
    CopyEntryOnlySettings(*record, settings_);
    session_.SiteUrl = record->SiteUrl();
    session_.SiteFileName = record->SiteFileName();
    session_.SiteFolder = record->SiteFolder();
    if (modeSwitch == 1) {
        settings_.ProgramMode = record->Number(field::EntryMode);
        settings_.EntryIsSite = record->Number(field::EntryIsSite);
    }
    http_.SetURL(session_.SiteUrl);
    const std::string host = Lower(http_.URLServer());
    if (host == session_.SiteHost) return;
    session_.SiteHost = host;
    session_.SiteHostAddress.clear();
}

}  // namespace qv
