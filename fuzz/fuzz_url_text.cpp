// Splitting, encoding, decoding and filtering of any address.
#include <cstdint>
#include <string>

#include "extract/link_resolver.h"
#include "extract/url_text.h"
#include "platform/http1.h"
#include "platform/url_parts.h"
#include "retrieve/request_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const qv::UrlParts parts = qv::SplitUrl(text);
    for (const char c : qv::RequestTarget(parts.Path))
        if (static_cast<unsigned char>(c) <= 0x20 || c == 0x7F) __builtin_trap();
    std::string changed = text;
    qv::PercentEncode(changed);
    qv::PercentDecode(changed);
    qv::MakeFileNameText(changed);
    (void)qv::IsIgnoredDocument(text, " .htm ", {"/x/"});
    (void)qv::NormalizeRequestPath(parts.Path);
    (void)qv::CheckDomainOrIP(text, parts.Server);
    (void)qv::SplitServerQuery(parts.Server);
    qv::DocumentBase base;
    qv::SplitDocumentPath(parts.Path, base);
    std::string address = text;
    std::string path;
    qv::ResolveLinkAddress(base, address, path);
    return 0;
}
