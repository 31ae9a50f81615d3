#include "platform/linux/scratch_folder.h"

#include <stdlib.h>

#include <filesystem>
#include <system_error>

namespace qv {

ScratchFolder::ScratchFolder() {
    std::error_code ignored;
    std::string pattern = (std::filesystem::temp_directory_path(ignored) / "quorvantis-XXXXXX").string();
    if (mkdtemp(pattern.data()) != nullptr) path_ = pattern;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
}

}  // namespace qv
