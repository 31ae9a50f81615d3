// The readers of the session's files: what was read once is written and read again alike.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "session/session_files.h"
#include "sitedb/entry_settings.h"
#include "sitedb/site_record.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    qv::LinkTable links;
    qv::ParseLinks(bytes, links);
    const std::string once = qv::ComposeLinks(links);
    qv::ParseLinks(once, links);
    if (qv::ComposeLinks(links) != once) std::abort();
    (void)qv::ParseSession(bytes);
    (void)qv::ParseHeader(bytes);
    (void)qv::NextCounter(bytes);
    qv::GoodLinkList good;
    qv::ParseGoodLinks(bytes, good);
    qv::SiteRecord record(bytes);
    qv::EntrySettings settings;
    qv::CopyCommonSettings(record, settings);
    qv::CopyEntryOnlySettings(record, settings);
    qv::AssignOldRecord(bytes, record);
    if (record.Bytes().size() != qv::SiteRecord::kSize) std::abort();
    return 0;
}
