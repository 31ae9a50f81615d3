// Starting other programs, and where the program itself keeps its things.
#pragma once

#include <string>
#include <vector>

namespace qv {

class Programs {
   public:
    virtual ~Programs() = default;
    // Whether a helper program exists. `path` is in the backslash form. The system's stand-in for "notepad.exe" counts.
    virtual bool Exists(const std::string& path) const = 0;
    // Starts a helper program with arguments and doesn't wait. A program that can't be started is passed over: false.
    virtual bool Start(const std::string& path, const std::vector<std::string>& arguments) = 0;
    // Opens an address or a file with what the desktop has for it.
    virtual bool OpenWithDesktop(const std::string& target) = 0;
};

// The folders that the system knows, in the backslash form with a backslash at the end.
struct Places {
    std::string appPath;        // the program's data folder
    std::string windowsFolder;  // where the system's programs are
    std::string shippedFolder;  // the files that come with the program; may be empty
};

}  // namespace qv
