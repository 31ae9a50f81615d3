#include "text/numbers.h"

#include <fmt/format.h>

#include <cmath>
#include <limits>

namespace qv {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

template <class Int>
std::optional<Int> LeadingInteger(std::string_view text) {
    const double value = std::trunc(LeadingNumber(text));
    if (value < static_cast<double>(std::numeric_limits<Int>::min()) ||
        value > static_cast<double>(std::numeric_limits<Int>::max()))
        return std::nullopt;
    return static_cast<Int>(value);
}

}  // namespace

double LeadingNumber(std::string_view text) {
    std::size_t at = 0;
    const auto skipBlanks = [&] {
        while (at < text.size() && (text[at] == ' ' || text[at] == '\t')) ++at;
    };
    skipBlanks();
    double sign = 1;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) {
        sign = text[at] == '-' ? -1 : 1;
        ++at;
        skipBlanks();
    }
    double value = 0;
    for (; at < text.size() && IsDigit(text[at]); ++at) value = value * 10 + (text[at] - '0');
    if (at < text.size() && text[at] == '.') {
        double place = 0.1;
        for (++at; at < text.size() && IsDigit(text[at]); ++at, place /= 10) value += (text[at] - '0') * place;
    }
    return sign * value;
}

std::optional<std::int16_t> LeadingInt16(std::string_view text) { return LeadingInteger<std::int16_t>(text); }
std::optional<std::int32_t> LeadingInt32(std::string_view text) { return LeadingInteger<std::int32_t>(text); }

std::int16_t RoundToInt16(double value) {
    constexpr double low = std::numeric_limits<std::int16_t>::min();
    constexpr double high = std::numeric_limits<std::int16_t>::max();
    if (std::isnan(value)) return 0;
    const double rounded = std::nearbyint(value);
    return static_cast<std::int16_t>(rounded < low ? low : rounded > high ? high : rounded);
}

std::string PrintForm(long long value) { return fmt::format("{: d}", value); }

std::string FiveDigits(long long value) { return fmt::format("{:05d}", value); }

}  // namespace qv
