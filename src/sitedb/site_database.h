// sitedata.zdt: the entries, as fixed records numbered from 1. Failures of the file are passed over: it reads as empty.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "session/session.h"
#include "sitedb/site_record.h"

namespace qv {

class SiteDatabase {
   public:
    SiteDatabase(Files& files, const Session& session) : files_(files), session_(session) {}

    // All whole records. A missing file is created empty.
    std::vector<SiteRecord> ReadAll();
    // Record `number`, from 1; nothing when it lies before the first or behind the end of the file, or can't be read. Of a
    // record that is cut short the missing bytes are zero.
    std::optional<SiteRecord> Read(int number);
    // Replaces the whole file; every record gets the version text.
    void WriteAll(std::vector<SiteRecord>& records);

    // Turns files of the previous layout into the present one. `tell` gets the text to show, `yield` lets events run.
    void ConvertSiteDatabase(const std::function<void(const std::string&)>& tell, const std::function<void()>& yield);

    // The first record of this kind and key, from 1; 0 when there is none.
    static int Find(const std::vector<SiteRecord>& records, std::int16_t entryMode, std::int16_t entryIsSite,
                    std::string_view key);

    // Drops the list of the Enterprise Check, whose record numbers have lost their meaning.
    void DropEnterpriseList();

   private:
    void ConvertFile(const std::string& name, int mostRecords, SiteRecord& working, const std::function<void()>& yield);
    std::string Path() const { return session_.AppPath + "sitedata.zdt"; }

    Files& files_;
    const Session& session_;
};

}  // namespace qv
