// Making a record the settings in force. Pure.
#pragma once

#include "session/settings.h"
#include "sitedb/site_record.h"

namespace qv {

// What loading an entry and loading the defaults copy alike. Texts are trimmed; the three lists get a blank at each end.
void CopyCommonSettings(const SiteRecord& record, EntrySettings& settings);

// What only loading an entry copies: the FTP log-in, the open mode, the lists as their parts and the texts to ignore.
void CopyEntryOnlySettings(const SiteRecord& record, EntrySettings& settings);

}  // namespace qv
