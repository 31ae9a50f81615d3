#include "session/partial_site.h"

#include "text/basic_text.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr const char* kSite = "resumes.zdt";
constexpr const char* kQueue = "resume1.zdt";
constexpr const char* kVisited = "resume2.zdt";

std::int32_t Count(std::string_view line) { return LeadingInt32(line).value_or(0); }

}  // namespace

void AddressList::Add(std::string_view url, std::string_view path) {
    entries_.push_back({std::string(Trim(url)), std::string(Trim(path))});
    known_.insert(entries_.back().url);
}

void AddressList::Append(AddressList& other) {
    for (const Entry& entry : other.entries_) Add(entry.url, entry.path);
    other.Clear();
}

void AddressList::Clear() {
    known_.clear();
    entries_.clear();
}

bool AddressList::Contains(std::string_view url) const { return known_.count(Trim(url)) != 0; }

bool HasPartialSite(const Files& files, const std::string& cacheFolder) { return files.FileExists(cacheFolder + kSite); }

PartialSite ReadPartialSite(const Files& files, const std::string& cacheFolder) {
    PartialSite site;
    std::string bytes;
    files.Read(cacheFolder + kSite, bytes);
    LineReader counts(bytes);
    site.SiteRoot = std::string(counts.Next());
    const std::int32_t queued = Count(counts.Next());
    const std::int32_t visited = Count(counts.Next());
    std::string queueBytes;
    files.Read(cacheFolder + kQueue, queueBytes);
    LineReader queue(queueBytes);
    for (std::int32_t i = 0; i < queued && !queue.AtEnd(); ++i) {
        const std::string_view url = queue.Next();
        site.Pending.Add(url, queue.Next());
    }
    std::string visitedBytes;
    files.Read(cacheFolder + kVisited, visitedBytes);
    LineReader opened(visitedBytes);
    for (std::int32_t i = 0; i < visited && !opened.AtEnd(); ++i) site.Visited.Add(opened.Next());
    return site;
}

void WritePartialSite(Files& files, const std::string& cacheFolder, const std::string& siteRoot, const AddressList& queue,
                      const AddressList& visited) {
    LineWriter queued;
    for (std::size_t i = 0; i < queue.Count(); ++i) queued.Line(queue.Url(i)).Line(queue.Path(i));
    files.Write(cacheFolder + kQueue, queued.Bytes());
    LineWriter opened;
    for (std::size_t i = 0; i < visited.Count(); ++i) opened.Line(visited.Url(i));
    files.Write(cacheFolder + kVisited, opened.Bytes());
    LineWriter site;
    site.Line(siteRoot).Line(PrintForm(static_cast<long>(queue.Count()))).Line(PrintForm(static_cast<long>(visited.Count())));
    files.Write(cacheFolder + kSite, site.Bytes());
}

void DeletePartialSite(Files& files, const std::string& cacheFolder) {
    for (const char* name : {kSite, kQueue, kVisited}) files.Remove(cacheFolder + name);
}

}  // namespace qv
