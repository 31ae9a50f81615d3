#include "mail/address_book.h"

#include <algorithm>
#include <utility>

#include "text/basic_text.h"
#include "text/lines.h"

namespace qv {
namespace {

constexpr int kEmptyLines = 7;  // of an entry

}  // namespace

// A shell sort: each gap is gone over until nothing is out of order.
void SortAddressBook(AddressBook& book) {
    for (std::size_t gap = (book.size() + 1) / 2; gap > 0 && book.size() > 1; gap /= 2) {
        for (bool swapped = true; swapped;) {
            swapped = false;
            for (std::size_t i = 0; i + gap < book.size(); ++i) {
                if (Lower(book[i].Address) <= Lower(book[i + gap].Address)) continue;
                std::swap(book[i], book[i + gap]);
                swapped = true;
            }
        }
    }
}

std::string ComposeAddressBook(const AddressBook& book) {
    LineWriter writer;
    for (const auto& entry : book) {
        writer.Line(entry.Address).Line(entry.Name);
        for (int i = 0; i < kEmptyLines; ++i) writer.Line("");
    }
    return writer.Bytes();
}

AddressBook ParseAddressBook(std::string_view bytes) {
    AddressBook book;
    LineReader reader(bytes);
    while (!reader.AtEnd()) {
        AddressBookEntry entry;
        entry.Address = std::string(reader.Next());
        entry.Name = std::string(reader.Next());
        for (int i = 0; i < kEmptyLines; ++i) reader.Next();
        book.push_back(std::move(entry));
    }
    return book;
}

void ExchangeAddressBook(Files& files, const std::string& appPath, AddressBook& book, std::int16_t direction) {
    const std::string path = appPath + "addbook.zdt";
    if (direction == 0) {
        SortAddressBook(book);
        files.Write(path, ComposeAddressBook(book));
        return;
    }
    std::string bytes;
    if (files.Read(path, bytes)) book = ParseAddressBook(bytes);
}

bool HasAddress(const AddressBook& book, std::string_view address) {
    return std::any_of(book.begin(), book.end(), [&](const auto& entry) { return entry.Address == address; });
}

bool AddAddress(AddressBook& book, const std::string& address) {
    if (HasAddress(book, address)) return false;
    book.push_back({address, address});
    return true;
}

}  // namespace qv
