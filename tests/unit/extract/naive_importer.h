// The scan of a page done the slow and obvious way: each tag's text is put together and searched from its beginning. The
// scanner must find exactly the same rows.
#pragma once

#include <string>
#include <vector>

#include "extract/link_resolver.h"
#include "extract/page_scanner.h"
#include "session/link_table.h"

namespace qv {

LinkTable ImportNaively(const std::string& page, const ScanSettings& settings, const DocumentBase& base);

}  // namespace qv
