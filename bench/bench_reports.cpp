// What a report of many links costs beside writing the same bytes, in time and in memory.
// usage: bench_reports [LINKS [FOLDER]]
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "platform/linux/scratch_folder.h"
#include "platform/linux/system_files.h"
#include "reports/report_writers.h"
#include "session/document_store.h"

namespace {

using namespace qv;

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

LinkTable Links(int count) {
    static const char* const kStatuses[] = {"OK", "404", "OK *", "NA/SE", "TMOUT"};
    LinkTable links;
    for (int i = 0; i < count; ++i) {
        LinkFlag flag;
        flag.SetStatus(kStatuses[i % 5]);
        links.Add("The label of link " + std::to_string(i) + std::string(i % 23, 'x'),
                  "http://www.example.test/folder/of/pages/page" + std::to_string(i) + ".html", flag, "");
    }
    return links;
}

void Write(ReportKind kind, const LinkTable& links, const std::function<void(std::string_view)>& pass) {
    ReportOutput output(pass);
    const auto writer = MakeReportWriter(kind, false, output);
    writer->Begin({"November 21, 2026 - 09:00:00", "http://www.example.test/"});
    writer->Document({"http://www.example.test/", "http://www.example.test/", links}, [] {});
    writer->End();
}

}  // namespace

int main(int argc, char** argv) {
    const int count = argc > 1 ? std::atoi(argv[1]) : 100000;
    const ScratchFolder scratch;
    const std::string folder = (argc > 2 ? PathText(argv[2]) : PathText(scratch.NativePath())) + "\\";
    SystemFiles files;
    Session session;
    session.AppPath = folder;
    files.MakeFolder(folder + "cache");
    DocumentStore store(files, session);
    session.Links = Links(count);
    store.SaveLinkList(1);
    const LinkTable links = session.Links;

    std::printf("%d links; medians of 15 pairs\n", count);
    const std::pair<ReportKind, const char*> forms[] = {
        {ReportKind::Text, "text"}, {ReportKind::Ascii, "ascii"}, {ReportKind::Html, "html"}};
    for (const auto& [kind, name] : forms) {
        std::string bytes;
        Write(kind, links, [&](std::string_view block) { bytes.append(block); });
        std::vector<double> reports, plain, ratios;
        std::size_t most = 0;
        for (int pair = 0; pair < 15; ++pair) {
            const std::size_t before = mallinfo2().uordblks;
            reports.push_back(Seconds([&, form = kind] {
                const auto file = files.Replace(folder + "report");
                Write(form, links, [&](std::string_view block) {
                    most = std::max<std::size_t>(most, mallinfo2().uordblks - before);
                    file->Append(block);
                });
                file->Finish();
            }));
            plain.push_back(Seconds([&] { files.Write(folder + "plain", bytes); }));
            ratios.push_back(reports.back() / plain.back());
        }
        std::printf("%-6s %6.1f MB   report %6.1f ms   the same bytes %6.1f ms   ratio %.2f   memory %zu KB\n", name,
                    static_cast<double>(bytes.size()) / 1e6, Median(reports) * 1e3, Median(plain) * 1e3, Median(ratios), most / 1024);
    }
    const double load = Seconds([&] { store.LoadLinkList(1); });
    std::printf("loading the document takes %.1f ms\n", load * 1e3);
    return 0;
}
