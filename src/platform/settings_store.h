// The per-user settings: a few values that don't lie in the program's folder.
#pragma once

#include <string>

namespace qv {

class SettingsStore {
   public:
    virtual ~SettingsStore() = default;
    virtual std::string Get(const std::string& section, const std::string& key, const std::string& byDefault) const = 0;
    virtual void Save(const std::string& section, const std::string& key, const std::string& value) = 0;  // failures are silent
};

}  // namespace qv
