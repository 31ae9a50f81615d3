#include "extract/link_resolver.h"

#include <algorithm>

#include "extract/url_text.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr std::size_t kSchemeWindow = 9;

// Takes the leading "../" and "./" off an address and goes up in the path for them.
void Climb(std::string& path, std::string& address) {
    std::size_t taken = 0;
    for (;;) {
        const std::string_view rest = std::string_view(address).substr(taken);
        if (StartsWith(rest, "../")) {
            taken += 3;
            const auto last = path.rfind('/');
            if (last == std::string::npos || last == 0) continue;
            const auto second = path.rfind('/', last - 1);
            if (second != std::string::npos) path.resize(second + 1);
        } else if (StartsWith(rest, "./")) {
            taken += 2;
        } else {
            break;
        }
    }
    address.erase(0, taken);
}

// Where a relative address stands: the folder that goes in front of it. `local` is the same place below the local root.
void ResolveRelative(const DocumentBase& base, std::string& address, std::string& linkPath) {
    std::string folder = base.DocumentFolder;
    const bool climbs = StartsWith(address, "../") || StartsWith(address, "./");
    const bool rooted = StartsWith(address, "/");
    const bool fragment = StartsWith(address, "#");
    if (climbs) {
        folder = base.URLPath.substr(0, base.URLPath.rfind('/') + 1);
        Climb(folder, address);
    } else if (rooted) {
        folder.clear();
    } else if (fragment) {
        folder += base.DocumentFile;
    }
    if (!base.LocalBase.empty()) {
        std::string local = fragment ? folder : folder + address;
        if (!climbs && !rooted && !fragment) local.resize(std::min(local.find('#'), local.size()));
        linkPath = base.LocalBase + local;
    }
    folder.insert(0, base.ServerPrefix);
    address.insert(0, folder);
}

}  // namespace

void SplitDocumentPath(const std::string& urlPath, DocumentBase& base) {
    base.URLPath = urlPath;
    const auto slash = urlPath.rfind('/');
    if (slash == std::string::npos) return;
    base.DocumentFolder = urlPath.substr(0, slash + 1);
    base.DocumentFile = urlPath.substr(slash + 1);
}

void ResolveLinkAddress(const DocumentBase& base, std::string& address, std::string& linkPath) {
    const bool relative = !Contains(std::string_view(address).substr(0, kSchemeWindow), "://");
    if (relative && StartsWith(address, "javascript:")) return;
    if (relative) {
        ResolveRelative(base, address, linkPath);
    } else if (base.localMode && !base.SiteRoot.empty() && StartsWith(address, base.SiteRoot)) {
        std::string rest = address.substr(base.SiteRoot.size());
        if (rest.empty() || EndsWith(rest, "/")) rest += base.SiteFileName;
        linkPath = base.SiteFolder + rest;
    }
    ConvertSlashes(linkPath, 0);
}

}  // namespace qv
