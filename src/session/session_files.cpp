#include "session/session_files.h"

#include <algorithm>

#include "platform/bounds.h"
#include "text/basic_text.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace qv {

HeaderLines WebDocumentHeader(const DocumentHeader& header) {
    const auto lastBackslash = header.DocumentPath.rfind('\\');
    const std::string folder =
        lastBackslash == std::string::npos ? std::string() : header.DocumentPath.substr(0, lastBackslash + 1);
    return {header.SiteUrl,
            header.SiteFileName,
            header.SiteFolder,
            header.CurrentDocumentUrl,
            header.DocumentPath,
            folder,
            "",
            std::to_string(header.SiteRecordNumber)};
}

std::string ComposeHeader(const HeaderLines& lines) {
    LineWriter writer;
    for (const auto& line : lines) writer.Line(line);
    return writer.Bytes();
}

HeaderLines ParseHeader(std::string_view bytes) {
    HeaderLines lines;
    LineReader reader(bytes);
    for (auto& line : lines) line = std::string(reader.Next());
    return lines;
}

std::string ComposeLinks(const LinkTable& links) {
    std::string bytes;
    ComposeLinks(links, 1, links.LinkTexts.size(), bytes);
    return bytes;
}

void ComposeLinks(const LinkTable& links, std::size_t first, std::size_t end, std::string& bytes) {
    constexpr std::size_t kMostPerLink = 1 + 6 + 5 * 2;  // mark, status and the line ends
    std::size_t room = 0;
    for (std::size_t i = first; i < end; ++i)
        room += links.LinkTexts[i].size() + links.LinkUrls[i].size() + links.LinkPaths[i].size() + kMostPerLink;
    bytes.resize(room);
    char* to = bytes.data();
    const auto line = [&to](std::string_view text) {
        to = std::copy(text.begin(), text.end(), to);
        *to++ = '\r';
        *to++ = '\n';
    };
    for (std::size_t i = first; i < end; ++i) {
        line(Trim(links.LinkTexts[i]));
        line(Trim(links.LinkUrls[i]));
        line(links.LinkFlags[i].Marked() ? "X" : "");
        line(links.LinkFlags[i].TrimmedStatus());
        line(Trim(links.LinkPaths[i]));
    }
    bytes.resize(static_cast<std::size_t>(to - bytes.data()));
}

void ParseLinks(std::string_view bytes, LinkTable& links) {
    links.Clear();
    LineReader reader(bytes);
    while (!reader.AtEnd() && links.LinkCount < bounds::kLinksPerDocument) {
        std::string text(reader.Next());
        std::string url(reader.Next());
        LinkFlag flag;
        const std::string_view mark = reader.Next();
        flag.Mark = mark.empty() ? ' ' : mark.front();
        flag.SetStatus(reader.Next());
        links.Add(std::move(text), std::move(url), std::move(flag), std::string(reader.Next()));
    }
}

std::string ComposeSession(const std::vector<DocumentEntry>& documents) {
    LineWriter writer;
    for (const auto& [address, number] : documents) writer.Line(address).Line(PrintForm(number) + " ");
    return writer.Bytes();
}

std::vector<DocumentEntry> ParseSession(std::string_view bytes) {
    std::vector<DocumentEntry> documents;
    LineReader reader(bytes);
    while (!reader.AtEnd()) {
        std::string address(reader.Next());
        documents.emplace_back(std::move(address), LeadingInt32(reader.Next()).value_or(0));
    }
    return documents;
}

std::string ComposeGoodLinks(const GoodLinkList& good) {
    LineWriter writer;
    for (const auto& address : good.GoodLinks()) writer.Line(address);
    return writer.Bytes();
}

void ParseGoodLinks(std::string_view bytes, GoodLinkList& good) {
    good.Clear();
    LineReader reader(bytes);
    while (!reader.AtEnd()) good.Add(std::string(reader.Next()));
}

std::pair<std::int32_t, std::string> NextCounter(std::string_view bytes) {
    const std::int32_t number = LeadingInt32(bytes.substr(0, 5)).value_or(0) + 1;
    std::string changed = FiveDigits(number);
    if (bytes.size() > changed.size()) changed.append(bytes.substr(changed.size()));
    return {number, changed};
}

}  // namespace qv
