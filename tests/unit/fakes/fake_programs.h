// Helper programs that are kept in mind and not started.
#pragma once

#include <string>
#include <vector>

#include "platform/programs.h"

namespace qv {

class FakePrograms : public Programs {
   public:
    bool Exists(const std::string& path) const override {
        for (const auto& name : missing)
            if (name == path) return false;
        return true;
    }
    bool Start(const std::string& path, const std::vector<std::string>& arguments) override {
        started.push_back(path);
        started.insert(started.end(), arguments.begin(), arguments.end());
        return true;
    }
    bool OpenWithDesktop(const std::string& target) override {
        opened.push_back(target);
        return true;
    }
    std::vector<std::string> missing;
    std::vector<std::string> started;  // a program and its arguments, one after the other
    std::vector<std::string> opened;
};

}  // namespace qv
