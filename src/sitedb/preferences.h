// preferen.zdt: the record of the program's defaults, held whole in memory.
#pragma once

#include "platform/files.h"
#include "session/session.h"
#include "sitedb/site_record.h"

namespace qv {

class Preferences {
   public:
    Preferences(Files& files, Session& session, Settings& settings) : files_(files), session_(session), settings_(settings) {}

    void ReadAtStart();       // a missing or empty file is written with the defaults
    SiteRecord Stored() const;  // the record as the file has it now; that in memory when there is no file
    void ApplyPreferences();  // makes the record the settings in force
    void Write();             // the record to the file

    const SiteRecord& Record() const { return record_; }
    void SetRecord(const SiteRecord& record) { record_ = record; }

   private:
    std::string Path() const { return session_.AppPath + "preferen.zdt"; }

    Files& files_;
    Session& session_;
    Settings& settings_;
    SiteRecord record_;
};

}  // namespace qv
