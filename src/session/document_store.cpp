#include "session/document_store.h"

#include "text/basic_text.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace qv {

std::string DocumentStore::CacheFile(std::int32_t number, const char* extension) const {
    return CacheFolder() + "xlf" + FiveDigits(number) + extension;
}

HeaderLines DocumentStore::ReadHeader(std::int32_t number) const {
    std::string bytes;
    files_.Read(CacheFile(number, ".qvn"), bytes);
    return ParseHeader(bytes);
}

std::optional<std::string> DocumentStore::ReadAddress(std::int32_t number) const {
    constexpr int kLinesBefore = 3;
    std::string bytes;
    files_.Read(CacheFile(number, ".qvn"), bytes);
    LineReader reader(bytes);
    for (int i = 0; i < kLinesBefore; ++i) reader.Next();
    if (reader.AtEnd()) return std::nullopt;
    return std::string(reader.Next());
}

void DocumentStore::WriteHeader(std::int32_t number, const HeaderLines& lines) {
    files_.Write(CacheFile(number, ".qvn"), ComposeHeader(lines));
}

void DocumentStore::WriteTitle(std::int32_t number, const std::string& title) {
    files_.Write(CacheFile(number, ".qvn"), LineWriter().Line(title).Bytes());
}

void DocumentStore::SaveLinkList(std::int32_t number) {
    files_.Write(CacheFile(number, ".lks"), composer_.Compose(session_.Links));
}

FileResult DocumentStore::LoadLinkList(std::int32_t number) {
    std::string bytes;
    FileResult result = files_.Read(CacheFile(number, ".lks"), bytes);
    ParseLinks(bytes, session_.Links);
    return result;
}

bool DocumentStore::HasLinkList(std::int32_t number) const { return files_.FileExists(CacheFile(number, ".lks")); }

std::int32_t DocumentStore::NextCacheNumber() {
    std::string bytes;
    files_.Read(CacheFolder() + "ccounter.txt", bytes);
    const auto [number, changed] = NextCounter(bytes);
    files_.WriteOver(CacheFolder() + "ccounter.txt", changed);
    return number;
}

bool DocumentStore::HasCounter() const { return files_.FileExists(CacheFolder() + "ccounter.txt"); }

void DocumentStore::SaveRunState(const ListBox& documents) {
    std::vector<DocumentEntry> entries;
    entries.reserve(static_cast<std::size_t>(documents.Count()));
    for (int i = 0; i < documents.Count(); ++i) entries.emplace_back(documents.Text(i), documents.ItemData(i));
    files_.Write(session_.AppPath + "session.zdt", ComposeSession(entries));
    files_.Write(CacheFolder() + "goodlink.zdt", ComposeGoodLinks(session_.Good));
}

std::optional<std::vector<DocumentEntry>> DocumentStore::LoadSession() const {
    std::string bytes;
    if (!files_.Read(session_.AppPath + "session.zdt", bytes)) return std::nullopt;
    return ParseSession(bytes);
}

void DocumentStore::LoadGoodLinks() {
    std::string bytes;
    files_.Read(CacheFolder() + "goodlink.zdt", bytes);
    ParseGoodLinks(bytes, session_.Good);
}

void DocumentStore::DeleteDocumentFiles(std::int32_t number) {
    for (const char* extension : {".htm", ".qvn", ".lst", ".lks"}) files_.Remove(CacheFile(number, extension));
}

void DocumentStore::SaveDocumentList(const std::string& path, std::int16_t mode, const ListBox& documents) {
    LineWriter writer;
    writer.Line(std::to_string(mode));
    for (int i = 0; i < documents.Count(); ++i)
        for (const auto& line : ReadHeader(documents.ItemData(i))) writer.Line(line);
    files_.Write(path + ".qvl", writer.Bytes());
}

}  // namespace qv
