#include "text/characters.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace qv {
namespace {

// The length of the valid UTF-8 sequence at the start of `text`, 0 if there is none.
std::size_t SequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) return 1;
    std::size_t length = 0;
    std::uint32_t least = 0;
    std::uint32_t value = 0;
    if (lead >= 0xC2 && lead < 0xE0)
        length = 2, value = lead & 0x1Fu, least = 0x80;
    else if (lead >= 0xE0 && lead < 0xF0)
        length = 3, value = lead & 0x0Fu, least = 0x800;
    else if (lead >= 0xF0 && lead < 0xF5)
        length = 4, value = lead & 0x07u, least = 0x10000;
    if (length == 0 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
        value = (value << 6) | (byte(i) & 0x3Fu);
    }
    if (value < least || value > 0x10FFFF || (value >= 0xD800 && value < 0xE000)) return 0;
    return length;
}

bool Continues(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

void AppendCodePoint(std::string& to, std::uint32_t value) {
    if (value < 0x80) {
        to += static_cast<char>(value);
    } else if (value < 0x800) {
        to += static_cast<char>(0xC0 | (value >> 6));
        to += static_cast<char>(0x80 | (value & 0x3F));
    } else {
        to += static_cast<char>(0xE0 | (value >> 12));
        to += static_cast<char>(0x80 | ((value >> 6) & 0x3F));
        to += static_cast<char>(0x80 | (value & 0x3F));
    }
}

// Windows-1252, bytes 0x80 to 0x9F; the five unassigned ones stay control characters.
constexpr std::array<std::uint16_t, 32> kCodePage = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                     0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

bool IsAscii(std::string_view text) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080u;
    const char* at = text.data();
    std::size_t left = text.size();
    std::uint64_t found = 0;
    for (; left >= sizeof found; at += sizeof found, left -= sizeof found) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, at, sizeof eight);
        found |= eight;
    }
    for (; left > 0; ++at, --left) found |= static_cast<unsigned char>(*at);
    return (found & kHighBits) == 0;
}

bool IsUtf8(std::string_view text) {
    if (IsAscii(text)) return true;
    while (!text.empty()) {
        const std::size_t length = SequenceLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::size_t CharacterCount(std::string_view text) {
    if (IsAscii(text) || !IsUtf8(text)) return text.size();
    std::size_t count = 0;
    for (const char c : text) count += Continues(c) ? 0 : 1;
    return count;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
    if (IsAscii(text) || !IsUtf8(text)) return text.substr(0, count);
    std::size_t at = 0;
    while (at < text.size() && count > 0) {
        ++at;
        while (at < text.size() && Continues(text[at])) ++at;
        --count;
    }
    return text.substr(0, at);
}

std::string PadCharacters(std::string_view text, std::size_t count) {
    const std::size_t have = CharacterCount(text);
    return std::string(text) + std::string(have < count ? count - have : 0, ' ');
}

void AppendCell(std::string& to, std::string_view text, std::size_t width, std::size_t cut, std::string_view dots) {
    const std::size_t count = CharacterCount(text);
    if (count > width)
        to.append(FirstCharacters(text, cut)).append(dots);
    else
        to.append(text).append(width - count, ' ');
}

std::string_view FitBytes(std::string_view text, std::size_t bytes) {
    if (text.size() <= bytes || !IsUtf8(text)) return text.substr(0, bytes);
    while (bytes > 0 && Continues(text[bytes])) --bytes;
    return text.substr(0, bytes);
}

void CutTo(std::string& text, std::size_t bytes) {
    if (text.size() > bytes) text.resize(FitBytes(text, bytes).size());
}

std::string AsUtf8(std::string_view text) {
    if (IsUtf8(text)) return std::string(text);
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        AppendCodePoint(result, byte >= 0x80 && byte < 0xA0 ? kCodePage[byte - 0x80u] : byte);
    }
    return result;
}

}  // namespace qv
