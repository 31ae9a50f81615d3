// The per-user settings in an INI file: $XDG_CONFIG_HOME (else ~/.config)/quorvantis/quorvantis.ini.
#pragma once

#include <string>

#include "platform/files.h"
#include "platform/settings_store.h"

namespace qv {

// `path` is the file, in the backslash form. Lines that aren't asked for are kept as they are.
class IniSettingsStore : public SettingsStore {
   public:
    IniSettingsStore(Files& files, std::string path) : files_(files), path_(std::move(path)) {}
    std::string Get(const std::string& section, const std::string& key, const std::string& byDefault) const override;
    void Save(const std::string& section, const std::string& key, const std::string& value) override;

   private:
    Files& files_;
    std::string path_;
};

std::string UserSettingsPath();  // as the environment tells, in the backslash form

}  // namespace qv
