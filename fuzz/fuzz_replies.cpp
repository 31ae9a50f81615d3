// What a server says: redirects, lengths, status lines, chunks.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "check/link_rules.h"
#include "retrieve/request_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    (void)qv::ParseRedirect(text, {"http", "h", 81, text.substr(0, size / 2)});
    (void)qv::ContentLength(text);
    (void)qv::NormalizeLineEnds(text);
    const std::string reply = qv::ReplyText(text);
    for (const int number : {0, 1, 404, 25003, 25061, 12152}) {
        const auto judged = qv::JudgeOutcome({.lastErrorNumber = number,
                                              .lastErrorText = text,
                                              .replyText = reply,
                                              .url = text,
                                              .followRedirects = size % 2 == 0});
        if (judged.status.size() != 6) std::abort();
    }
    return 0;
}
