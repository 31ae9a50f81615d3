// Making an entry of the database the settings in force.
#pragma once

#include "platform/http1.h"
#include "session/session.h"
#include "sitedb/site_database.h"

namespace qv {

class SiteRecordLoader {
   public:
    SiteRecordLoader(SiteDatabase& sites, Session& session, Settings& settings, HTTP1& http)
        : sites_(sites), session_(session), settings_(settings), http_(http) {}

    // With `modeSwitch` 1 the mode and the kind of the entry become those of the program, else they stay. A record that can't
    // be read copies nothing.
    void LoadSiteRecord(int number, int modeSwitch);

   private:
    SiteDatabase& sites_;
    Session& session_;
    Settings& settings_;
    HTTP1& http_;
};

}  // namespace qv
