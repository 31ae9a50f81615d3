// The files that are lists: bookmarks, addresses, the rest of a site that was stopped.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "bookmarks/bookmark_file.h"
#include "fakes/fake_files.h"
#include "mail/address_book.h"
#include "session/partial_site.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);

    qv::BookmarkGroups groups = qv::ParseBookmarks(bytes);
    qv::LinkTable links;
    const std::int32_t bookmarks = qv::FillLinks(groups, links);
    if (bookmarks < 0 || bookmarks > links.LinkCount) std::abort();
    qv::ApplyRows(links, groups);
    const std::string once = qv::ComposeBookmarks(groups);
    if (qv::ComposeBookmarks(qv::ParseBookmarks(once)) != once) std::abort();

    const qv::AddressBook book = qv::ParseAddressBook(bytes);
    const std::string addresses = qv::ComposeAddressBook(book);
    if (qv::ComposeAddressBook(qv::ParseAddressBook(addresses)) != addresses) std::abort();

    qv::FakeFiles files;
    for (const char* name : {"\\c\\resumes.zdt", "\\c\\resume1.zdt", "\\c\\resume2.zdt"}) files.files[name] = bytes;
    qv::PartialSite site = qv::ReadPartialSite(files, "\\c\\");
    qv::WritePartialSite(files, "\\c\\", site.SiteRoot, site.Pending, site.Visited);
    const auto written = files.files;
    site = qv::ReadPartialSite(files, "\\c\\");
    qv::WritePartialSite(files, "\\c\\", site.SiteRoot, site.Pending, site.Visited);
    if (files.files != written) std::abort();
    return 0;
}
