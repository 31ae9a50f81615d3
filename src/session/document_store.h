// The files of the session: headers and links of the documents, the list of documents, the good addresses.
// Missing and damaged files read as empty, and failing writes are passed over.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "controls/list_box.h"
#include "platform/files.h"
#include "session/link_file_composer.h"
#include "session/session.h"
#include "session/session_files.h"

namespace qv {

class DocumentStore {
   public:
    DocumentStore(Files& files, Session& session) : files_(files), session_(session) {}

    HeaderLines ReadHeader(std::int32_t number) const;
    // The document's address in its header file; nothing when the file can't be read so far.
    std::optional<std::string> ReadAddress(std::int32_t number) const;
    void WriteHeader(std::int32_t number, const HeaderLines& lines);
    void WriteTitle(std::int32_t number, const std::string& title);  // the header of a bookmark bar: this line alone

    void SaveLinkList(std::int32_t number);                          // the session's link table to the document's file
    FileResult LoadLinkList(std::int32_t number);                    // and back; an empty table if that fails
    bool HasLinkList(std::int32_t number) const;
    std::size_t SavedLinkBytes() const { return composer_.Size(); }  // how long the file was that was saved last

    std::int32_t NextCacheNumber();  // takes and counts on the counter of cache\ccounter.txt
    bool HasCounter() const;

    // session.zdt and cache\goodlink.zdt, of the documents of this list.
    void SaveRunState(const ListBox& documents);
    // Nothing when session.zdt can't be opened.
    std::optional<std::vector<DocumentEntry>> LoadSession() const;
    void LoadGoodLinks();

    void DeleteDocumentFiles(std::int32_t number);
    // Writes "<path>.qvl": the mode, and the eight header lines of each document.
    void SaveDocumentList(const std::string& path, std::int16_t mode, const ListBox& documents);

    std::string CacheFolder() const { return session_.AppPath + "cache\\"; }

   private:
    std::string CacheFile(std::int32_t number, const char* extension) const;

    Files& files_;
    Session& session_;
    LinkFileComposer composer_;
};

}  // namespace qv
