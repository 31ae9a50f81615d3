#include "check/row_status.h"

#include "check/link_rules.h"
#include "text/basic_text.h"

namespace qv {

LinkFlag& RowStatus::FlagOfRow(int row) {
    LinkTable& links = session_.Links;
    const std::int32_t link = window_.List1.ItemData(row);
    return links.LinkFlags[static_cast<std::size_t>(links.Has(link) ? link : 0)];
}

void RowStatus::MarkRowChecking(int row) {
    LinkFlag& flag = FlagOfRow(row);
    flag.Mark = 'X';
    flag.SetStatus(status::kChecking);
    rows_.RefreshLinkRow(row);
}

void RowStatus::WriteRowStatus(int row, const std::string& status) {
    LinkFlag& flag = FlagOfRow(row);
    if (Trim(status) != "STOP") flag.Mark = ' ';
    flag.SetStatus(status);
    rows_.RefreshLinkRow(row);
}

void RowStatus::SaveDocument() {
    const ListBox& documents = window_.txtFileName;
    const int selected = documents.ListIndex();
    if (selected >= 0 && documents.Text(selected) == session_.CurrentDocumentUrl) {
        store_.SaveLinkList(documents.ItemData(selected));
        return;
    }
    for (int i = 0; i < documents.Count(); ++i) {
        if (documents.Text(i) != session_.CurrentDocumentUrl) continue;
        store_.SaveLinkList(documents.ItemData(i));
        return;
    }
}

}  // namespace qv
