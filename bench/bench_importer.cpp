// Importing 50 MB of pages: megabytes a second, beside libgumbo's parse of the same bytes and beside a bare pass that only finds
// each "<" and compares tag names; and how the time grows with the size of hostile pages.
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "extract/page_scanner.h"

#ifdef HAVE_GUMBO
#include <gumbo.h>
#endif

namespace {

using qv::DocumentBase;
using qv::LinkTable;
using qv::PageScanner;
using qv::ScanSettings;

constexpr std::size_t kSetBytes = 50 * 1000 * 1000;

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// A page as sites have them: a head, a navigation, paragraphs of text with a link now and then, images, a table.
std::string OrdinaryPage(unsigned seed) {
    const auto next = [&seed] { return seed = seed * 1664525U + 1013904223U, (seed >> 16) & 0x7FFF; };
    std::string page =
        "<!DOCTYPE html>\r\n<html lang=\"en\">\r\n<head>\r\n<meta charset=\"utf-8\">\r\n<title>Page</title>\r\n"
        "<link rel=\"stylesheet\" href=\"/style.css\">\r\n<script>\r\nvar x = 1;\r\nfunction f(a) { return a < x; "
        "}\r\n</script>\r\n"
        "</head>\r\n<body>\r\n<div class=\"nav\"><ul>\r\n";
    for (int i = 0; i < 12; ++i)
        page += "  <li class=\"item\"><a href=\"/section" + std::to_string(i) + "/index.html\">Section " + std::to_string(i) +
                "</a></li>\r\n";
    page += "</ul></div>\r\n";
    for (int i = 0; i < 120; ++i) {
        page += "<p class=\"text\">";
        for (unsigned word = 0, words = 40 + next() % 60; word < words; ++word) {
            static const char* const kWords[] = {"river ", "boat ",    "the ",     "<b>club</b> ",
                                                 "of ",    "rowing, ", "morning ", "oars "};
            page += kWords[next() % 8];
        }
        if (next() % 3 == 0)
            page +=
                "<a class=\"more\" href=\"../docs/page" + std::to_string(next()) + ".html\" title=\"More\">more &amp; more</a>";
        if (next() % 8 == 0) page += "<img src=\"pics/p" + std::to_string(next()) + ".jpg\" alt=\"A picture\" width=\"200\">";
        page += "</p>\r\n<div><span>" + std::to_string(next()) + "</span><br></div>\r\n";
    }
    return page + "</body>\r\n</html>\r\n";
}

std::int32_t Import(const std::string& page) {
    static const std::vector<std::string> ignored = {"/banners/"};
    ScanSettings settings;
    settings.ignoreLinkPathList = &ignored;
    DocumentBase base;
    base.ServerPrefix = "http://host.dom";
    qv::SplitDocumentPath("/docs/page.html", base);
    LinkTable links;
    PageScanner scanner(page, settings, base, links);
    while (scanner.Step()) {
    }
    return links.LinkCount;
}

// The least that finding tags can cost: memchr for "<", and the names that begin with the letter behind it compared.
std::size_t BarePass(const std::string& page) {
    static const char* const kNames[] = {"a", "option", "frame", "meta", "img", "body", "bgsound", "embed"};
    std::size_t found = 0;
    const char* at = page.data();
    const char* end = at + page.size();
    while ((at = static_cast<const char*>(std::memchr(at, '<', static_cast<std::size_t>(end - at)))) != nullptr) {
        if (++at == end) break;
        const char letter = static_cast<char>(*at | 0x20);
        for (const char* name : kNames) {
            if (*name != letter) continue;
            const std::size_t length = std::strlen(name);
            found += static_cast<std::size_t>(end - at) >= length && strncasecmp(at, name, length) == 0 ? 1 : 0;
        }
    }
    return found;
}

void Hostile(const char* name, const std::function<std::string(std::size_t)>& make) {
    std::printf("%-44s", name);
    for (const std::size_t size : {1000000U, 2000000U, 4000000U, 8000000U}) {
        const std::string page = make(size);
        std::printf(" %8.1f ms", 1000 * Seconds([&] { Import(page); }));
    }
    std::printf("\n");
}

std::string Repeated(const std::string& piece, std::size_t size, const std::string& end = "") {
    std::string page;
    while (page.size() < size) page += piece;
    return page + end;
}

}  // namespace

int main() {
    std::vector<std::string> pages;
    std::size_t bytes = 0;
    for (unsigned seed = 1; bytes < kSetBytes; ++seed) {
        pages.push_back(OrdinaryPage(seed));
        bytes += pages.back().size();
    }
    const double megabytes = static_cast<double>(bytes) / 1e6;
    std::size_t links = 0;
    std::size_t tags = 0;
    double importing = 1e9;
    double bare = 1e9;
    for (int round = 0; round < 5; ++round) {
        importing = std::min(importing, Seconds([&] {
                                 for (const auto& page : pages) links += static_cast<std::size_t>(Import(page));
                             }));
        bare = std::min(bare, Seconds([&] {
                            for (const auto& page : pages) tags += BarePass(page);
                        }));
    }
    std::printf("%zu pages, %.1f MB, %zu links\n", pages.size(), megabytes, links / 5);
    std::printf("importer   %8.0f MB/s\n", megabytes / importing);
    std::printf("bare pass  %8.0f MB/s   importer / bare pass = %.2f\n", megabytes / bare, bare / importing);
#ifdef HAVE_GUMBO
    const double gumbo = Seconds([&] {
        for (const auto& page : pages)
            gumbo_destroy_output(&kGumboDefaultOptions,
                                 gumbo_parse_with_options(&kGumboDefaultOptions, page.data(), page.size()));
    });
    std::printf("libgumbo   %8.0f MB/s   importer / libgumbo = %.1f\n", megabytes / gumbo, gumbo / importing);
#else
    std::printf("libgumbo isn't there\n");
#endif
    std::printf("\nHostile pages of 1, 2, 4 and 8 MB\n");
    Hostile("<a href=\"x on each line, never closed", [](std::size_t n) { return Repeated("<a href=\"x\n", n); });
    Hostile("<a href=\"x\"> on each line, closed at the end",
            [](std::size_t n) { return Repeated("<a href=\"x\">\n", n, "</a>"); });
    Hostile("<a on each line, one address at the end", [](std::size_t n) { return Repeated("<a \n", n, "href=\"x\">y</a>"); });
    Hostile("<img on each line, never closed", [](std::size_t n) { return Repeated("<img src=\n", n); });
    Hostile("<meta url= on each line, never closed", [](std::size_t n) { return Repeated("<meta url=\n", n); });
    Hostile("<option value=http: on each line", [](std::size_t n) { return Repeated("option <option value=http:\n", n); });
    Hostile("one line of good links", [](std::size_t n) { return Repeated("<a href=\"x.htm\">x</a>", n); });
    Hostile("one line of <a", [](std::size_t n) { return Repeated("<a ", n); });
    Hostile("one line of <script>", [](std::size_t n) { return Repeated("<script>", n, "/script>"); });
    Hostile("one line of <script></script>", [](std::size_t n) { return Repeated("<script> </script>-", n); });
    Hostile("old line ends only", [](std::size_t n) { return Repeated("<a href=\"x.htm\">x</a>\r", n); });
    return tags == 0 ? 1 : 0;
}
