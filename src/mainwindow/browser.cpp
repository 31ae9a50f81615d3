#include "mainwindow/browser.h"

#include "extract/url_text.h"
#include "platform/files.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr std::size_t kLongestNoAddress = 4;  // characters
constexpr int kTries = 3;
constexpr double kForegroundTime = 0.3;  // seconds that a window gets to come to the front
constexpr double kAnswerTime = 0.6;      // and to fill the clipboard

// What the titles of browsers' windows contain.
constexpr const char* kBrowserTitles[] = {"Internet Explorer", "Netscape",        "Chromium", "Google Chrome", "Mozilla Firefox",
                                          "Microsoft Edge",    "Brave",           "Opera",    "Vivaldi",       "Epiphany",
                                          "Konqueror",         "Firefox"};

}  // namespace

void Browser::OpenInBrowser(std::string target) {
    if (!target.empty() && target.front() == '"') {
        target.erase(0, 1);
        if (!target.empty()) target.pop_back();
    }
    if (!p_.settings.BrowserPath.empty()) {
        p_.programs.Start(p_.settings.BrowserPath, {target});
    } else if (target.size() > kLongestNoAddress) {
        p_.programs.OpenWithDesktop(target);
    } else {
        // No browser can be talked to here: one is started with the home page, and doesn't answer either.
        p_.programs.OpenWithDesktop(services::kHomePage);
        p_.loop.Yield();
        p_.windows.ShowMessage(
            "Quorvantis can't communicate with your Browser.  Neither Netscape nor Internet Explorer responded to a request to "
            "open.");
        return;
    }
    p_.loop.Yield();
}

void Browser::Pause(double seconds, bool untilClipboard) {
    const double start = p_.clock.SecondsSinceMidnight();
    for (double now = start; now >= start && now < start + seconds; now = p_.clock.SecondsSinceMidnight()) {
        if (untilClipboard && !p_.windows.Clipboard().empty()) return;
        p_.loop.WaitFor(start + seconds - now);
    }
}

// Its address box is entered, and what is selected then copied.
std::string Browser::AskByKeys(const std::string& title) {
    std::string text;
    for (int attempt = 0; attempt < kTries && !Contains(text, ":"); ++attempt) {
        if (!p_.others.Activate(title)) return "";
        p_.windows.SetClipboard("");
        Pause(kForegroundTime, false);
        p_.others.PressKey("l", true);
        p_.others.PressKey("Insert", true);
        Pause(kAnswerTime, true);
        p_.others.PressKey("Escape", false);
        text = p_.windows.Clipboard();
    }
    return Contains(text, ":") ? text : "";
}

std::string Browser::PageAddress() {
    for (const char* name : kBrowserTitles) {
        const std::string title = FindWindowTitle(p_.others.Titles(), name, true);
        if (title.empty()) continue;
        std::string address = AskByKeys(title);
        if (!address.empty()) return address;
    }
    return "";
}

std::string FileUrl(const std::string& path) {
    std::string native = NativePath(path);
    PercentEncode(native);
    const auto afterSlashes = native.find_first_not_of('/');
    return "file:///" + (afterSlashes == std::string::npos ? std::string() : native.substr(afterSlashes));
}

namespace services {
namespace {

// Where the old services are gone, one of today takes their place.
constexpr const char* kAltaVista = "http://search.yahoo.com";
constexpr const char* kExcite = "http://www.excite.com";
constexpr const char* kInfoSeek = "http://www.bing.com";
constexpr const char* kGoogle = "http://www.google.com";
constexpr const char* kWhois = "http://www.networksolutions.com";
constexpr const char* kSecondWhois = "http://www.whois.com";

std::string Joined(std::string_view text) { return ReplaceAll(Trim(text), " ", "+"); }

std::string WithoutWww(std::string_view host) { return std::string(host.substr(StartsWithLower(host, "www.") ? 4 : 0)); }

}  // namespace

const char* const kHomePage = "http://www.quorvantis.example/";

std::string AltaVista(std::string_view text, bool quoted) {
    const std::string begin = std::string(kAltaVista) + "/cgi-bin/query?pg=q&what=web&kl=XX&q=";
    return quoted ? begin + "%22" + Joined(text) + "%22" : begin + "link:" + Joined(text);
}

std::string Excite(std::string_view text) { return std::string(kExcite) + "/search.gw?trace=a&search=" + Joined(text); }

std::string InfoSeek(std::string_view text) {
    return std::string(kInfoSeek) + "/Titles?qt=" + Joined(text) + "&col=WW&sv=IS&lk=noframes&nh=10";
}

std::string Google(std::string_view text) { return std::string(kGoogle) + "/search?hl=en&q=" + Joined(text); }

std::string WhoisOfDocument(std::string_view host) {
    return std::string(kWhois) + "/cgi-bin/whois/whois?STRING=" + WithoutWww(host) + "&x=43&y=7";
}

std::string WhoisOfLink(std::string_view host) {
    return std::string(kSecondWhois) + "/cgi-bin/whois/whois?STRING=" + WithoutWww(host) + "&SearchType=do";
}

}  // namespace services

}  // namespace qv
