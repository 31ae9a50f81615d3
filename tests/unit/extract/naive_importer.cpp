#include "extract/naive_importer.h"

#include <algorithm>

namespace qv {
namespace {

using std::string;

// Searches with places from 1; 0 is "not found", as in the rules that the product was written from.
std::size_t InStr(std::size_t start, const string& text, const string& what) {
    if (start < 1 || start > text.size()) return 0;
    const auto at = text.find(what, start - 1);
    return at == string::npos ? 0 : at + 1;
}
string Mid(const string& text, std::size_t start, std::size_t length = string::npos) {
    return start < 1 || start > text.size() ? "" : text.substr(start - 1, length);
}
string Low(string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return text;
}
string Trimmed(const string& text) {
    const auto first = text.find_first_not_of(' ');
    return first == string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}
string Replaced(string text, const string& what, const string& by) {
    for (auto at = text.find(what); at != string::npos; at = text.find(what, at + by.size())) text.replace(at, what.size(), by);
    return text;
}

class Naive {
   public:
    Naive(const string& page, const ScanSettings& settings, const DocumentBase& base) : settings_(settings), base_(base) {
        string line;
        for (std::size_t i = 0; i < page.size(); ++i) {
            if (page[i] != '\r' && page[i] != '\n') {
                line += page[i];
                if (i + 1 == page.size()) lines_.push_back(line);
                continue;
            }
            if (page[i] == '\r' && i + 1 < page.size() && page[i + 1] == '\n') ++i;
            lines_.push_back(line);
            line.clear();
        }
    }

    LinkTable Run() {
        for (number_ = 0; number_ < lines_.size(); ++number_) {
            line_ = lines_[number_];
            if (settings_.ignoreJavaScript != 0) Strip();
            if (inScript_ && settings_.ignoreJavaScript == -1) continue;
            Each("<a", [&](std::size_t p) { Anchor(p); });
            Each("<area", [&](std::size_t p) { Quoted(p, "area", "href"); });
            Each("<option", [&](std::size_t p) { Option(p); });
            Each("<frame", [&](std::size_t p) { Quoted(p, "frame", "src"); });
            Each("<meta", [&](std::size_t p) { Meta(p, "url"); });
            Each("<meta", [&](std::size_t p) { Meta(p, "location"); });
            if (!settings_.includeImages) continue;
            Each("<img", [&](std::size_t p) { Quoted(p, "img", "src"); });
            Each("<body", [&](std::size_t p) { Quoted(p, "body", "background"); });
            if (!soundSeen_) Each("<bgsound", [&](std::size_t p) { Quoted(p, "bgsound", "src"); });
            Each("<embed", [&](std::size_t p) { Quoted(p, "embed", "src"); });
            Each("<applet", [&](std::size_t p) { Quoted(p, "applet", "code"); });
        }
        return links_;
    }

   private:
    void Strip() {
        if (inScript_) {
            const auto end = InStr(1, line_, "/script>");
            if (end > 0) {
                line_ = Mid(line_, end + 7, line_.size() - (end + 7));
                inScript_ = false;
            }
        }
        if (!inScript_) {
            std::size_t last = 0;
            for (auto at = InStr(1, line_, "<script"); at > 0; at = InStr(last + 1, line_, "<script")) {
                const auto end = InStr(at + 1, line_, "/script>");
                if (end > 0) {
                    line_.erase(at - 1, end + 8 - at);
                } else {
                    line_.resize(at - 1);
                    inScript_ = true;
                }
                last = at;
            }
        }
        line_ = Trimmed(line_);
    }

    template <class Do>
    void Each(const string& name, Do what) {
        const string lower = Low(line_);
        for (auto p = InStr(1, lower, name); p > 0; p = InStr(p + 1, lower, name)) what(p);
    }

    // The tag from place p through the mark; false when the mark doesn't come before the end of the file.
    bool Take(std::size_t p, const string& mark, std::size_t from, bool keepFirst, string& tag) {
        const auto end = InStr(from, Low(line_), mark);
        if (end > 0) {
            tag = Mid(line_, p, end + mark.size() - p);
            return true;
        }
        tag = keepFirst ? Mid(line_, p) + " " : "";
        for (std::size_t next = number_ + 1; next < lines_.size(); ++next) {
            const auto at = InStr(1, Low(lines_[next]), mark);
            if (at > 0) {
                tag += Mid(lines_[next], 1, at + mark.size() - 1);
                return true;
            }
            tag += lines_[next] + " ";
        }
        return false;
    }

    bool Filtered(const string& tag) const {
        if (InStr(1, tag, "mailto:") || InStr(1, tag, "news:")) return true;
        if (settings_.ignoreJavaScript != 0 && InStr(1, tag, "javascript:")) return true;
        return !settings_.checkFtpLinks && InStr(1, tag, "ftp:");
    }

    void Anchor(std::size_t p) {
        string element;
        if (!Take(p, "/a>", p + 6, true, element)) return;
        const auto close = InStr(1, element, ">");
        const string opening = Mid(element, 1, close);
        const auto end = InStr(close + 1, Low(element), "</a>");
        if (end > 0) inner_ = Mid(element, close + 1, end - close - 1);
        if (Filtered(opening)) return;
        const auto name = InStr(1, Low(opening), "href");
        const auto quote = name > 0 ? InStr(name, opening, "\"") : 0;
        if (quote == 0) return;
        auto last = InStr(quote + 2, opening, "\"");
        if (last == 0) last = opening.size();
        Add("a", Address(Trimmed(Mid(opening, quote + 1, last - quote - 1))), Label(inner_));
    }

    void Option(std::size_t p) {
        string tag;
        if (!Take(p, "<", p + 1, true, tag) || Filtered(tag)) return;
        const auto name = InStr(1, Low(tag), "value");
        if (name == 0) return;
        auto start = InStr(name, tag, "http:");
        if (start == 0) start = InStr(name, tag, "ftp:");
        if (start == 0) return;
        const auto found = InStr(start + 5, tag, ">");
        const auto end = found > 0 ? found : tag.size() + 1;
        const string address = Address(Trimmed(Mid(tag, start, end - 1 - start)));
        if (found > 0) option_ = Mid(tag, end + 1, tag.size() - end - 1);
        Add("option", address, Label(option_));
    }

    void Meta(std::size_t p, const string& attribute) {
        string tag;
        Take(p, ">", p + 1, true, tag);
        const auto name = InStr(1, Low(tag), attribute);
        const auto equals = name > 0 ? InStr(name, tag, "=") : 0;
        if (equals == 0) return;
        auto end = InStr(equals + 2, tag, " ");
        if (end == 0) end = tag.size() + 1;
        string address = Address(Trimmed(Mid(tag, equals + 1, end - equals - 1)));
        if (!address.empty() && address.back() == ';') address.pop_back();
        Add("meta", address, "[Meta Tag]");
        soundSeen_ = true;
    }

    void Quoted(std::size_t p, const string& kind, const string& attribute) {
        string tag;
        const bool image = kind == "img";
        const bool general = kind != "area" && kind != "frame" && !image;
        if (!Take(p, ">", image ? p + 4 : p + 1, !image, tag) && !general) return;
        if (kind == "area" && Filtered(tag)) return;
        const auto name = InStr(1, Low(tag), attribute);
        const auto quote = name > 0 ? InStr(name, tag, "\"") : 0;
        if (quote == 0) return;
        auto end = InStr(quote + 2, tag, "\"");
        if (end == 0) end = image ? tag.size() : tag.size() + 1;
        const string value = Mid(tag, quote + 1, end - quote - 1);
        const string label = kind == "area"      ? "[Image Map Link]"
                             : kind == "frame"   ? "[Frame]"
                             : image             ? "[Image]"
                             : kind == "body"    ? "[Background Image]"
                             : kind == "bgsound" ? "[MS Sound]"
                             : kind == "embed"   ? "[Plug-in]"
                                                 : "[Java Applet]";
        Add(kind, Address(kind == "area" ? value : Trimmed(value)), label);
        if (general) soundSeen_ = true;
    }

    static string Address(string text) {
        if (!text.empty() && text.back() == '>') text.pop_back();
        const auto later = InStr(2, text, "\"");
        if (later > 0) text = Mid(text, 1, later - 1);
        return Replaced(text, "\"", "");
    }

    static string Label(const string& raw) {
        string text = Replaced(Replaced(Replaced(raw, "\r", ""), "\n", ""), "\t", "");
        for (auto open = InStr(1, text, "<"); open > 0; open = InStr(open, text, "<")) {
            const auto close = InStr(open, text, ">");
            if (close == 0) break;
            text.erase(open - 1, close - open + 1);
        }
        while (InStr(1, text, "  ")) text = Replaced(text, "  ", " ");
        text = Trimmed(Replaced(Replaced(text, "&amp;", "&"), "&nbsp;", ""));
        if (!text.empty()) return text;
        const string lower = Low(raw);
        return InStr(1, lower, "ismap") ? "[Image Map Link]" : InStr(1, lower, "<img") ? "[Image HyperLink]" : "[None]";
    }

    void Resolve(string& a, string& path) const {
        if (Mid(a, 1, 9).find("://") == string::npos) {
            if (Mid(a, 1, 11) == "javascript:") return;
            string folder;
            string local;
            if (Mid(a, 1, 3) == "../" || Mid(a, 1, 2) == "./") {
                folder = base_.URLPath;
                while (!folder.empty() && folder.back() != '/') folder.pop_back();
                while (Mid(a, 1, 3) == "../" || Mid(a, 1, 2) == "./") {
                    if (Mid(a, 1, 2) == "./") {
                        a = Mid(a, 3);
                        continue;
                    }
                    std::size_t seen = 0;
                    for (std::size_t i = folder.size(); i > 0; --i) {
                        if (folder[i - 1] != '/' || ++seen < 2) continue;
                        folder.resize(i);
                        break;
                    }
                    a = Mid(a, 4);
                }
                local = folder + a;
            } else if (Mid(a, 1, 1) == "/") {
                local = a;
            } else if (Mid(a, 1, 1) != "#") {
                folder = base_.DocumentFolder;
                local = folder + a;
                if (const auto hash = InStr(1, local, "#"); hash > 0) local.resize(hash - 1);
            } else {
                folder = base_.DocumentFolder + base_.DocumentFile;
                local = folder;
            }
            if (!base_.LocalBase.empty()) path = base_.LocalBase + local;
            a = base_.ServerPrefix + folder + a;
        } else if (base_.localMode && !base_.SiteRoot.empty() && Mid(a, 1, base_.SiteRoot.size()) == base_.SiteRoot) {
            string rest = Mid(a, base_.SiteRoot.size() + 1);
            if (rest.empty() || rest.back() == '/') rest += base_.SiteFileName;
            path = base_.SiteFolder + rest;
        }
        std::replace(path.begin(), path.end(), '/', '\\');
    }

    void Add(const string& kind, string address, string label) {
        string path;
        if (settings_.resolveLinks) Resolve(address, path);
        for (const string& entry : *settings_.ignoreLinkPathList)
            if (address.find(entry) != string::npos) return;
        const bool script = Mid(address, 1, 11) == "javascript:";
        if (!script || kind != "a") {
            const auto hash = InStr(1, address, "#");
            if (hash > 0 && (kind == "a" || kind == "option" || kind == "frame" || kind == "area")) {
                label = (kind == "frame" ? "[Frame - Local: " : "[Local: ") + Mid(address, hash) + "]";
                address.resize(hash - 1);
            }
            if (kind != "img" && std::count(address.begin(), address.end(), '/') == 2) address += "/";
        }
        if (script && kind == "a") label = "[Script URL]";
        if (script && kind == "option") label = "[Script Option]";
        if (script && kind == "img") label = "[Script Image]";
        if (script && kind == "area") label = "[Script Image Map]";
        if (kind == "option" && !script) label = "[Menu] " + label;
        links_.Add(kind == "a" ? label : Trimmed(label), address, {}, path);
    }

    const ScanSettings& settings_;
    const DocumentBase& base_;
    std::vector<string> lines_;
    std::size_t number_ = 0;
    string line_;
    bool inScript_ = false;
    bool soundSeen_ = false;
    string inner_;
    string option_;
    LinkTable links_;
};

}  // namespace

LinkTable ImportNaively(const std::string& page, const ScanSettings& settings, const DocumentBase& base) {
    return Naive(page, settings, base).Run();
}

}  // namespace qv
