#include "platform/linux/ini_settings_store.h"

#include <cstdlib>
#include <string_view>
#include <vector>

#include "text/basic_text.h"
#include "text/lines.h"

namespace qv {
namespace {

// Walks the lines and calls `visit(line, inside)`, `inside` telling whether the line lies in the section.
template <class Visit>
void WalkLines(std::string_view bytes, const std::string& section, Visit visit) {
    bool inside = false;
    LineReader reader(bytes);
    while (!reader.AtEnd()) {
        const std::string_view line = reader.Next();
        const std::string_view text = Trim(line);
        if (StartsWith(text, "[")) inside = text == "[" + section + "]";
        visit(line, inside);
    }
}

bool IsKey(std::string_view line, const std::string& key) {
    const auto equals = line.find('=');
    return equals != std::string_view::npos && Trim(line.substr(0, equals)) == key;
}

}  // namespace

std::string IniSettingsStore::Get(const std::string& section, const std::string& key, const std::string& byDefault) const {
    std::string bytes;
    files_.Read(path_, bytes);
    std::string value = byDefault;
    WalkLines(bytes, section, [&](std::string_view line, bool inside) {
        if (inside && IsKey(line, key)) value = std::string(Trim(line.substr(line.find('=') + 1)));
    });
    return value;
}

void IniSettingsStore::Save(const std::string& section, const std::string& key, const std::string& value) {
    std::string bytes;
    files_.Read(path_, bytes);
    std::vector<std::string> lines;
    std::size_t sectionEnd = 0;  // behind the last line of the section, 0 while it wasn't met
    bool replaced = false;
    WalkLines(bytes, section, [&](std::string_view line, bool inside) {
        const bool isKey = inside && IsKey(line, key);
        lines.push_back(isKey ? key + "=" + value : std::string(line));
        replaced = replaced || isKey;
        if (inside && !Trim(line).empty()) sectionEnd = lines.size();
    });
    if (!replaced && sectionEnd == 0) {
        lines.push_back("[" + section + "]");
        sectionEnd = lines.size();
    }
    if (!replaced) lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(sectionEnd), key + "=" + value);
    std::string changed;
    for (const auto& line : lines) changed += line + "\n";
    files_.MakeFolder(path_.substr(0, path_.rfind('\\')));
    files_.Write(path_, changed);
}

std::string UserSettingsPath() {
    const char* configured = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    std::string folder = configured != nullptr ? configured : "";
    if (folder.empty()) folder = std::string(home != nullptr ? home : "") + "/.config";
    return PathText(folder + "/quorvantis/quorvantis.ini");
}

}  // namespace qv
