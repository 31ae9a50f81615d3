#include "check/file_probe.h"

#include "extract/url_text.h"

namespace qv {

void FileProbe::Run(LinkProbe& probe, const std::string& path, Path kind) {
    http_.SetURL(probe.url);
    if (kind == Path::Decoded) probe.url = steps_.RepairCommaHost(probe.url);
    steps_.FixScheme();
    flags_.Clear();
    steps_.ArmWatchdog(false);
    probe.deadline = steps_.Now() + settings_.HttpTimeout;
    std::string name = path;
    if (kind == Path::Decoded) PercentDecode(name);
    if (!files_.FileExists(name)) flags_.LastErrorNumber = kErrorFileMissing;
    flags_.TransferDone = kSet;
}

}  // namespace qv
