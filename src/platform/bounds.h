// What a page, a server or a file can make the program do at most. All of it is far beyond real use.
#pragma once

#include <cstddef>
#include <cstdint>

namespace qv::bounds {

inline constexpr std::int64_t kBodyBytes = std::int64_t{256} * 1024 * 1024;    // a body file
inline constexpr std::size_t kReplyHeaderBytes = 100 * 1024;                   // the headers of one reply, status line included
inline constexpr std::size_t kAddressBytes = 64 * 1024;                        // an address that is kept; longer ones are cut
inline constexpr std::size_t kLabelBytes = 64 * 1024;                          // a label likewise
inline constexpr std::size_t kImportedBytes = std::size_t{256} * 1024 * 1024;  // addresses and labels of one document, cut out
inline constexpr std::int32_t kLinksPerDocument = 1000000;

}  // namespace qv::bounds
