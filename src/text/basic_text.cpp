#include "text/basic_text.h"

namespace qv {

std::string_view TrimLeft(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

std::string_view TrimRight(std::string_view text) {
    const auto last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

std::string_view Trim(std::string_view text) { return TrimLeft(TrimRight(text)); }

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return lower;
}

bool StartsWith(std::string_view text, std::string_view beginning) { return text.substr(0, beginning.size()) == beginning; }

bool EndsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

bool Contains(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

bool StartsWithLower(std::string_view text, std::string_view lowerBeginning) {
    return Lower(text.substr(0, lowerBeginning.size())) == lowerBeginning;
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view by) {
    if (what.empty()) return std::string(text);
    std::string result;
    std::size_t from = 0;
    for (auto at = text.find(what); at != std::string_view::npos; at = text.find(what, from)) {
        result.append(text, from, at - from).append(by);
        from = at + what.size();
    }
    return result.append(text, from);
}

std::string BetweenBlanks(std::string_view text) { return " " + std::string(Trim(text)) + " "; }

}  // namespace qv
