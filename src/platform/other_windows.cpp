#include "platform/other_windows.h"

#include "text/basic_text.h"

namespace qv {

std::string FindWindowTitle(const std::vector<std::string>& titles, const std::string& wanted, bool partial) {
    for (const auto& title : titles) {
        const bool fits = partial ? Contains(title, wanted) && !Contains(title, "Netscape's H") && !Contains(title, "Netscape Mail")
                                  : title == wanted;
        if (fits) return title;
    }
    return "";
}

}  // namespace qv
