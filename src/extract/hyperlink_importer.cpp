#include "extract/hyperlink_importer.h"

#include <algorithm>

#include "extract/link_text.h"
#include "extract/page_scanner.h"
#include "extract/url_text.h"
#include "platform/bounds.h"
#include "text/basic_text.h"
#include "text/characters.h"
#include "text/lines.h"

namespace qv {
namespace {

constexpr double kPauseSeconds = 0.2;
constexpr std::size_t kMostHeadCharacters = 9000;

// The lines through the one that ends the head, joined with nothing between them; no further than kMostHeadCharacters.
std::string JoinHead(std::string_view page) {
    std::string head;
    std::size_t characters = 0;
    bool utf8 = true;
    for (LineReader reader(page); !reader.AtEnd() && (utf8 ? characters : head.size()) <= kMostHeadCharacters;) {
        const std::string_view line = reader.Next();
        head.append(line);
        if (line.size() > kMostHeadCharacters * 4 || Lower(line).find("</head>") != std::string::npos) break;
        utf8 = utf8 && IsUtf8(line);
        characters += CharacterCount(line);
    }
    return head;
}

}  // namespace

// What the first "<base" that has an "href=" in its tag gives.
std::optional<std::string> FindBaseAddress(std::string_view page) {
    const std::string head = JoinHead(page);
    const std::string lower = Lower(head);
    std::size_t attribute = 0;
    for (auto tag = lower.find("<base"); tag != std::string::npos; tag = lower.find("<base", tag + 1)) {
        if (attribute <= tag) attribute = lower.find("href=", tag + 1);
        if (attribute == std::string::npos) return std::nullopt;
        if (attribute > lower.find('>', tag)) continue;
        const auto start = attribute + 5;
        const auto end = lower.find('>', start);
        if (end == std::string::npos) return std::nullopt;
        return CleanLinkAddress(std::string_view(head).substr(start, end - start));
    }
    return std::nullopt;
}

void HyperlinkImporter::PauseInInternetMode() {
    if (settings_.ProgramMode != kInternetMode || !clock_.PausesWanted()) return;
    const double start = clock_.SecondsSinceMidnight();
    for (double now = start; now >= start && now < start + kPauseSeconds; now = clock_.SecondsSinceMidnight())
        loop_.WaitFor(start + kPauseSeconds - now);
}

bool HyperlinkImporter::OpenPage(std::string& page, Flag& failed, std::string& message) {
    const std::string& path = session_.ImportFilePath;
    // A folder at this place is there, and fails when it is opened.
    if (!files_.FileExists(path) && !files_.FolderExists(path)) {
        message = "File not found.";
        if (flags_.Alone()) windows_.ShowMessage("File not found - " + path);
        failed = kSet;
        return false;
    }
    const FileResult opened = files_.Read(path, page, bounds::kBodyBytes);
    if (opened) return true;
    message = files_.FolderExists(path) ? "Path" : opened.text;
    if (flags_.Alone()) windows_.ShowMessage("Error Opening File");
    failed = kSet;
    return false;
}

// The texts are looked for in lower case, and the page as it stands.
bool HyperlinkImporter::HoldsIgnoredText(const std::string& page) const {
    return flags_.SiteOpenRunning != 0 && std::any_of(settings_.IgnoreTextList.begin(), settings_.IgnoreTextList.end(),
                                                      [&](const std::string& text) { return Contains(page, Lower(Trim(text))); });
}

void HyperlinkImporter::TakeBase(const std::string& page) {
    if (const auto base = FindBaseAddress(page)) http_.SetURL(*base);
}

DocumentBase HyperlinkImporter::MakeBase(std::int16_t resolveLinks) {
    DocumentBase base;
    base.ServerPrefix = http_.URLScheme() + "://" + http_.URLServer();
    if (http_.URLPort() != 80) base.ServerPrefix += ":" + std::to_string(http_.URLPort());
    if (resolveLinks == 1) SplitDocumentPath(http_.URLPath(), base);
    base.localMode = settings_.ProgramMode == kLocalMode;
    base.SiteRoot = session_.SiteRoot;
    base.SiteFolder = session_.SiteFolder;
    base.SiteFileName = session_.SiteFileName;
    SetLocalPlaces(base);
    return base;
}

void HyperlinkImporter::SetLocalPlaces(DocumentBase& base) {
    session_.DocumentPath.clear();
    if (base.localMode) {
        const std::string& file = session_.ImportFilePath;
        if (base.DocumentFile.empty()) base.DocumentFile = file.substr(file.rfind('\\') + 1);
        const std::size_t below = base.DocumentFolder.size() + base.DocumentFile.size();
        base.LocalBase = below < file.size() ? file.substr(0, file.size() - below) : "";
        session_.DocumentPath = file;
        return;
    }
    if (session_.SiteFolder.empty()) return;
    std::string below = base.DocumentFolder;
    ConvertSlashes(below, 0);
    std::string folder = session_.SiteFolder;
    if (EndsWith(folder, below)) folder = folder.substr(0, folder.size() - below.size()) + base.DocumentFolder;
    ConvertSlashes(folder, 0);
    session_.DocumentPath = folder + base.DocumentFile;
    base.LocalBase = folder.substr(0, folder.size() - (folder.empty() ? 0 : 1));
}

void HyperlinkImporter::Scan(const std::string& page, const DocumentBase& base, bool resolve, Flag& failed,
                             std::string& message) {
    const ScanSettings scan{.includeImages = settings_.IncludeImages != 0,
                            .ignoreJavaScript = settings_.IgnoreJavaScript,
                            .checkFtpLinks = settings_.CheckFtpLinks != 0,
                            .resolveLinks = resolve,
                            .ignoreLinkPathList = &settings_.IgnoreLinkPathList};
    PageScanner scanner(page, scan, base, session_.Links);
    if (!page.empty()) window_.ProgressBar1.SetRange(0, static_cast<long>(page.size()));
    for (bool more = true; more;) {
        more = scanner.Step();
        window_.ProgressBar1.SetValue(static_cast<long>(scanner.Position()));
        loop_.YieldIfDue();
        if (flags_.StopRequested == 0) continue;
        message = "Document Open was cancelled";
        failed = kSet;
        return;
    }
}

void HyperlinkImporter::Import(std::int16_t ResolveLinks, Flag& Failed, std::string& Message, const std::string&) {
    session_.Links.Clear();
    PauseInInternetMode();
    std::string page;
    if (!OpenPage(page, Failed, Message)) return;
    if (HoldsIgnoredText(page)) return;
    flags_.HideGoodLinks = kClear;
    window_.ComHide.SetCaption("S&how Bad Only");
    TakeBase(page);
    const DocumentBase base = MakeBase(ResolveLinks);
    Scan(page, base, ResolveLinks == 1, Failed, Message);
    if (session_.Links.LinkCount == 0 && flags_.Alone()) windows_.ShowMessage("No URLs Were Found.");
    window_.ProgressBar1.SetValue(0);
    window_.ProgressBar1.SetVisible(true);
    window_.Picture1.SetVisible(false);
    if (window_.List1.Count() > 0) window_.List1.SetListIndex(0);
}

}  // namespace qv
