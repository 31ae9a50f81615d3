// The status of rows: in the link, in the list, and in the document's file.
#pragma once

#include <string>

#include "mainwindow/check_form.h"
#include "session/document_store.h"
#include "session/link_rows.h"
#include "session/session.h"

namespace qv {

class RowStatus {
   public:
    RowStatus(CheckForm& window, Session& session, DocumentStore& store, LinkRows& rows)
        : window_(window), session_(session), store_(store), rows_(rows) {}

    void MarkRowChecking(int row);
    bool IsAsking() const { return asked_ != 0; }  // a marked link has no status yet
    // The link isn't marked any more, unless the check of it was stopped. The status is padded to six characters.
    void WriteRowStatus(int row, const std::string& status);
    // Writes the links of the document at hand. The cache file is found by the address, not by the selection.
    // A link that is being asked is written with the status it had before.
    void SaveDocument();

   private:
    std::size_t LinkOfRow(int row) const;  // 0: none
    void Write();

    CheckForm& window_;
    Session& session_;
    DocumentStore& store_;
    LinkRows& rows_;
    std::size_t asked_ = 0;  // the link that is being asked, 0: none
    std::string statusBefore_;
};

}  // namespace qv
