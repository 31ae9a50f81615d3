#include "check/row_status.h"

#include <utility>

#include "check/link_rules.h"
#include "text/basic_text.h"

namespace qv {

std::size_t RowStatus::LinkOfRow(int row) const {
    const std::int32_t link = window_.List1.ItemData(row);
    return session_.Links.Has(link) ? static_cast<std::size_t>(link) : 0;
}

void RowStatus::MarkRowChecking(int row) {
    asked_ = LinkOfRow(row);
    LinkFlag& flag = session_.Links.LinkFlags[asked_];
    statusBefore_ = flag.Status;
    flag.Mark = 'X';
    flag.SetStatus(status::kChecking);
    rows_.RefreshLinkRow(row);
}

void RowStatus::WriteRowStatus(int row, const std::string& status) {
    asked_ = 0;
    LinkFlag& flag = session_.Links.LinkFlags[LinkOfRow(row)];
    if (Trim(status) != "STOP") flag.Mark = ' ';
    flag.SetStatus(status);
    rows_.RefreshLinkRow(row);
}

void RowStatus::SaveDocument() {
    if (asked_ == 0 || asked_ >= session_.Links.LinkFlags.size()) {
        Write();
        return;
    }
    LinkFlag& flag = session_.Links.LinkFlags[asked_];
    std::swap(flag.Status, statusBefore_);
    Write();
    std::swap(flag.Status, statusBefore_);
}

void RowStatus::Write() {
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
