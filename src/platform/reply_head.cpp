#include "platform/reply_head.h"

#include <charconv>

#include "text/basic_text.h"

namespace qv {
namespace {

constexpr std::string_view kSpace = " \t\r\n";
constexpr int kSwitchingProtocols = 101;

std::string_view TrimSpace(std::string_view text) {
    const auto first = text.find_first_not_of(kSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

std::string_view WithoutLineEnd(std::string_view line) {
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.remove_suffix(1);
    return line;
}

std::string_view BehindFirstBlank(std::string_view line) {
    const auto blank = line.find(' ');
    return blank == std::string_view::npos ? std::string_view() : TrimSpace(line.substr(blank + 1));
}

// The number that a text begins with; `otherwise` when it begins with none, or with one that is too great.
template <class Number>
Number LeadingDigits(std::string_view text, Number otherwise) {
    Number value = 0;
    if (text.empty() || text.front() < '0' || text.front() > '9') return otherwise;
    return std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc{} ? value : otherwise;
}

}  // namespace

bool ReplyHead::IsAnnouncement() const { return code_ / 100 == 1 && code_ != kSwitchingProtocols; }

ReplyHead::Line ReplyHead::Take(std::string_view line) {
    bytes_ += line.size();
    if (complete_) return Line::Passed;
    line = WithoutLineEnd(line);
    if (!inHead_) {
        statusLine_ = std::string(line);
        code_ = LeadingDigits(BehindFirstBlank(line), 0);
        inHead_ = true;
        return Line::Passed;
    }
    if (!line.empty()) return TakeField(line);
    inHead_ = false;
    complete_ = !IsAnnouncement();
    return complete_ ? Line::End : Line::Passed;
}

ReplyHead::Line ReplyHead::TakeField(std::string_view line) {
    const auto colon = line.find(':');
    const bool goesOn = line.front() == ' ' || line.front() == '\t';  // the rest of the header before
    if (IsAnnouncement() || goesOn || colon == std::string_view::npos) return Line::Passed;
    field_ = std::string(TrimSpace(line.substr(0, colon)));
    value_ = std::string(TrimSpace(line.substr(colon + 1)));
    if (Lower(field_) == "content-length") contentLength_ = LeadingDigits(value_, std::int64_t{-1});
    return Line::Field;
}

std::string ReplyHead::CodeAndReason() const { return std::string(BehindFirstBlank(statusLine_)); }

}  // namespace qv
