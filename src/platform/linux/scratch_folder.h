// A folder of the process's own that is removed with all that is in it.
#pragma once

#include <string>

namespace qv {

class ScratchFolder {
   public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::string& NativePath() const { return path_; }  // without a slash at the end

   private:
    std::string path_;
};

}  // namespace qv
