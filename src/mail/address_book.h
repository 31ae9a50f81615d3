// The addresses that the user has written to. addbook.zdt: nine lines an entry, the address, the name, and seven empty ones.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace qv {

struct AddressBookEntry {
    std::string Name;  // always the address
    std::string Address;
};
using AddressBook = std::vector<AddressBookEntry>;

// Ascending by the address in lower case.
void SortAddressBook(AddressBook& book);

std::string ComposeAddressBook(const AddressBook& book);
AddressBook ParseAddressBook(std::string_view bytes);

// Direction 0 sorts the book and writes the file; any other reads it, if there is one. Failures are passed over.
void ExchangeAddressBook(Files& files, const std::string& appPath, AddressBook& book, std::int16_t direction);

// Whether the address is in the book, exactly; and the same with the address added at the end otherwise (true: it was added).
bool HasAddress(const AddressBook& book, std::string_view address);
bool AddAddress(AddressBook& book, const std::string& address);

}  // namespace qv
