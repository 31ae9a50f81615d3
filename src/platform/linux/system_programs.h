// Starting programs of the system, and the program's own folders.
#pragma once

#include <string>

#include "platform/files.h"
#include "platform/programs.h"

namespace qv {

class SystemPrograms : public Programs {
   public:
    explicit SystemPrograms(const Files& files) : files_(files) {}
    bool Exists(const std::string& path) const override;
    bool Start(const std::string& path, const std::vector<std::string>& arguments) override;
    bool OpenWithDesktop(const std::string& target) override;

   private:
    // The program behind a path: itself, or the desktop's own opener for a "notepad.exe" that isn't there; else empty.
    std::string Native(const std::string& path) const;

    const Files& files_;
};

Places FindPlaces();  // as the environment tells

// Makes the program's data folder when it is missing and copies what ships with the program into it. A folder that is there
// already gets nothing. `shipped` is a folder in the backslash form; empty: nothing to copy.
void PrepareAppFolder(Files& files, const std::string& appPath, const std::string& shipped);

// The folder with the files that ship with the program: beside the running program, or where it was installed. Empty when
// there is none.
std::string FindShippedFolder(const Files& files);

}  // namespace qv
