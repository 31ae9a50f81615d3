// Making an address of a page absolute, and finding the file that it maps to. Pure.
#pragma once

#include <string>
#include <string_view>

namespace qv {

// What the document's own address and the open site say. Paths are in the forms that they have in the session.
struct DocumentBase {
    std::string ServerPrefix;  // scheme, "://", server and the port that isn't 80
    std::string URLPath;
    std::string DocumentFolder;  // URLPath through its last "/"
    std::string DocumentFile;    // what stands behind that
    std::string LocalBase;       // the local folder of the server's root, without a backslash at its end; empty: none
    bool localMode = false;
    std::string SiteRoot;
    std::string SiteFolder;
    std::string SiteFileName;
};

// Folder and file of a path: up to its last "/", and behind it.
void SplitDocumentPath(const std::string& urlPath, DocumentBase& base);

// Makes the address absolute and sets the path, where there is one; the path comes in empty.
void ResolveLinkAddress(const DocumentBase& base, std::string& address, std::string& linkPath);

}  // namespace qv
