// What a server says: redirects, lengths, status lines, chunks.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "check/link_rules.h"
#include "platform/reply_head.h"
#include "retrieve/request_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    (void)qv::ParseRedirect(text, {"http", "h", 81, text.substr(0, size / 2)});
    (void)qv::ContentLength(text);
    qv::ReplyHead head;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
        (void)head.Take(std::string_view(text).substr(start, end - start));
        start = end;
    }
    if (head.Bytes() != text.size()) std::abort();
    if (head.Code() < 0 || head.ContentLength() < -1) std::abort();
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
