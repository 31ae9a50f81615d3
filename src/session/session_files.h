// The texts of the session's files. Pure: bytes in, values out, and back.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "session/link_table.h"
#include "session/session.h"

namespace qv {

// A document of the session: its address and its cache number.
using DocumentEntry = std::pair<std::string, std::int32_t>;

inline constexpr int kHeaderLines = 8;
using HeaderLines = std::array<std::string, kHeaderLines>;

// cache\xlf<key>.qvn: eight lines. A reader gives empty lines for those that aren't there.
HeaderLines WebDocumentHeader(const DocumentHeader& header);
std::string ComposeHeader(const HeaderLines& lines);
HeaderLines ParseHeader(std::string_view bytes);

// cache\xlf<key>.lks: five lines a link, each value trimmed. Parsing replaces the table; lines that a cut file doesn't have
// are empty, and links beyond the bound of a document are dropped.
std::string ComposeLinks(const LinkTable& links);
// The same for the links from `first` up to, but not including, `end`, into a text that keeps its room.
void ComposeLinks(const LinkTable& links, std::size_t first, std::size_t end, std::string& bytes);
void ParseLinks(std::string_view bytes, LinkTable& links);

// session.zdt: the address and, in print style, the cache number of each document.
std::string ComposeSession(const std::vector<DocumentEntry>& documents);
std::vector<DocumentEntry> ParseSession(std::string_view bytes);

// cache\goodlink.zdt: one address a line.
std::string ComposeGoodLinks(const GoodLinkList& good);
void ParseGoodLinks(std::string_view bytes, GoodLinkList& good);

// cache\ccounter.txt: gives the number behind the one that the file's first five bytes hold, and the file's new bytes:
// that number in at least five digits over the old beginning.
std::pair<std::int32_t, std::string> NextCounter(std::string_view bytes);

}  // namespace qv
