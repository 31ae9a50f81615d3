// The page scanner on any bytes: it comes to the end of the page, and every row has its four parts.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "extract/hyperlink_importer.h"
#include "extract/page_scanner.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const std::string_view page(reinterpret_cast<const char*>(data) + 1, size - 1);
    static const std::vector<std::string> ignored = {"/banners/"};
    qv::ScanSettings settings;
    settings.ignoreJavaScript = static_cast<qv::Flag>((data[0] & 3) - 1);
    settings.includeImages = (data[0] & 4) != 0;
    settings.checkFtpLinks = (data[0] & 8) != 0;
    settings.ignoreLinkPathList = &ignored;
    qv::DocumentBase base;
    base.ServerPrefix = "http://h";
    base.LocalBase = (data[0] & 16) != 0 ? "\\web" : "";
    qv::SplitDocumentPath("/a/b.htm", base);
    qv::LinkTable links;
    qv::PageScanner scanner(page, settings, base, links);
    while (scanner.Step()) {
    }
    if (scanner.Position() != page.size()) std::abort();
    if (links.LinkUrls.size() != static_cast<std::size_t>(links.LinkCount) + 1) std::abort();
    (void)qv::FindBaseAddress(page);
    return 0;
}
