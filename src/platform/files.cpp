#include "platform/files.h"

#include <algorithm>

namespace qv {
namespace {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

bool SameLetters(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

}  // namespace

std::string Files::RealName(const std::string& folder, const std::string& name) const {
    std::string found = name;
    for (const auto& listed : List(folder, name)) {  // a "*" in the name only makes the list longer
        if (listed == name) return name;
        if (SameLetters(listed, name)) found = listed;
    }
    return found;
}

bool FitsMask(std::string_view name, std::string_view mask) {
    std::size_t n = 0;
    std::size_t m = 0;
    std::size_t star = std::string_view::npos;  // the last "*" met, and the name's place when it was met
    std::size_t resume = 0;
    while (n < name.size()) {
        if (m < mask.size() && mask[m] == '*') {
            star = m++;
            resume = n;
        } else if (m < mask.size() && (mask[m] == '?' || LowerAscii(mask[m]) == LowerAscii(name[n]))) {
            ++n;
            ++m;
        } else if (star != std::string_view::npos) {
            m = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    return mask.find_first_not_of('*', m) == std::string_view::npos;
}

std::string NativePath(std::string_view pathText) {
    std::string path(pathText);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

std::string PathText(std::string_view nativePath) {
    std::string path(nativePath);
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

}  // namespace qv
