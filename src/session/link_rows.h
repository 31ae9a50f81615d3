// The rows of the link list: their text, and the equality of a row's selection with its link's mark.
#pragma once

#include <cstdint>
#include <string>

#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "session/session.h"

namespace qv {

// Three columns for a fixed-pitch font: the status padded to 6 characters, "<number>. <text>" cut or padded to 32, and the
// target in brackets behind a blank.
std::string LinkRowText(std::int32_t number, std::string_view text, std::string_view target, std::string_view status);
// Appends the same for a link of the table, by its number and address, whatever is hidden: the row of a report.
void BuildLinkRowText(const LinkTable& links, std::int32_t link, std::string& row);

// Appends "<number>. <trimmed text>", padded with blanks to `width` characters or, when it is longer, cut to its first `cut` (20 at
// least) and followed by `dots`.
void AppendNumberedCell(std::string& to, std::int32_t number, std::string_view text, std::size_t width, std::size_t cut,
                        std::string_view dots);

// Whether an address stands for a heading of the Zephon Bookmarks mode and not for a link.
bool IsHeading(std::string_view url);

// Whether a row of this status is left out while good links are hidden (a blank one is, "-->" isn't).
bool IsHiddenStatus(std::string_view trimmedStatus, bool persistentRedirectsOk);

// What a status tells, for whoever shows it by more than its letters.
enum class StatusTone { None, Good, Redirected, Ignored, Questionable, Working, Interrupted };
StatusTone ToneOfStatus(std::string_view trimmedStatus);

class LinkRows {
   public:
    LinkRows(ListBox& list, Picture& fontNamePicture, Session& session, const Settings& settings, const RunFlags& flags)
        : list_(list), fontNamePicture_(fontNamePicture), session_(session), settings_(settings), flags_(flags) {}

    void AddLinkRow(std::int32_t link);                     // appends the link's row, unless hiding leaves it out
    void AddAllRows();                                      // AddLinkRow for each link in order
    void RefreshLinkRow(int row);                           // text and selection anew; the number is the row's position then
    void SetListExtent();                                   // the horizontal extent, from the longest row

   private:
    std::string RowText(std::int32_t link, std::int32_t number) const;

    ListBox& list_;
    Picture& fontNamePicture_;
    Session& session_;
    const Settings& settings_;
    const RunFlags& flags_;
};

}  // namespace qv
