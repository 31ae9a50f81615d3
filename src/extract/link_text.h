// Cleaning what stands in a page: addresses and labels. Pure.
#pragma once

#include <string>
#include <string_view>

namespace qv {

// An address as it stood: a ">" at its end falls off; the text ends before a double quote behind its first position; double
// quotes at its start go.
std::string CleanLinkAddress(std::string_view raw);

// The label of an anchor or an option without tags, line ends, tabs, double blanks, "&nbsp;", and blanks at its ends; "&amp;"
// becomes "&". Empty when nothing remains.
std::string CleanLabelText(std::string_view raw);

// The two last steps alone, for a text without tags and double blanks.
std::string FinishLabelText(std::string_view text);

// What a label reads of which nothing remains.
std::string EmptyLabel(bool holdsIsMap, bool holdsImage);

// An address with exactly two "/" gets one more at its end.
void CompleteServerAddress(std::string& address);

// Takes a text's tags out, from left to right: each "<" with the next ">" behind it. Line ends become blanks, tabs go, and
// double blanks become one. `tagEnd(rawPosition, textLength)` is called behind each tag that was taken out.
template <class TagEnd>
std::string StripTags(std::string_view raw, TagEnd tagEnd) {
    std::string text;
    bool tagsLeft = true;
    std::size_t at = 0;
    const auto add = [&](char c) {
        if (c == '\t' || (c == ' ' && !text.empty() && text.back() == ' ')) return;
        text += c;
    };
    while (at < raw.size()) {
        const char c = raw[at];
        if (c == '<' && tagsLeft) {
            const auto close = raw.find('>', at);
            tagsLeft = close != std::string_view::npos;
            if (tagsLeft) {
                at = close + 1;
                tagEnd(at, text.size());
                continue;
            }
        }
        if (c == '\r' && at + 1 < raw.size() && raw[at + 1] == '\n') ++at;
        add(c == '\r' || c == '\n' ? ' ' : c);
        ++at;
    }
    return text;
}

}  // namespace qv
