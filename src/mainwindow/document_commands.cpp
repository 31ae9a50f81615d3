#include "mainwindow/document_commands.h"

#include "platform/files.h"
#include "text/basic_text.h"

namespace qv {

void DocumentCommands::MenuViewReload_Click() {
    if (p_.settings.ProgramMode == kLocalMode) {
        OpenLocalDocument(p_.session.DocumentPath, p_.session.CurrentDocumentUrl);
        return;
    }
    p_.flags.OpenWithoutWizard = kSet;
    ComOpen_Click();
    p_.flags.OpenWithoutWizard = kClear;
}

void DocumentCommands::MenuViewSource_Click() {
    if (p_.settings.ProgramMode == kLocalMode) {
        p_.programs.Start(p_.settings.SourceViewerPath, {NativePath(p_.session.DocumentPath)});
        return;
    }
    p_.flags.OpenWithoutWizard = p_.flags.OpenInSourceViewer = kSet;
    ComOpen_Click();
    p_.flags.OpenWithoutWizard = p_.flags.OpenInSourceViewer = kClear;
    p_.window.ProgressBar1.SetValue(0);
    p_.window.ProgressBar1.SetVisible(false);
    p_.window.Picture1.SetVisible(false);
    p_.window.StatusBar1.SetText("Done.");
}

void DocumentCommands::MenuViewDelete_Click() {
    ListBox& documents = p_.window.txtFileName;
    if (documents.Count() <= 1) return;
    const int selected = documents.ListIndex();
    const std::int32_t number = documents.ItemData(selected);
    if (number > 0) {
        p_.store.DeleteDocumentFiles(number);
        documents.RemoveItem(selected);
        documents.SetListIndex(selected > 0 ? selected - 1 : 0);
    }
    p_.rules.SetToolButtons();
}

void DocumentCommands::MenuLinkOpen_Click() {
    const std::int32_t link = p_.window.List1.ItemData(p_.window.List1.ListIndex());
    if (!p_.session.Links.Has(link)) return;
    std::string address(Trim(p_.session.Links.LinkUrls[static_cast<std::size_t>(link)]));
    const std::string path = p_.session.Links.LinkPaths[static_cast<std::size_t>(link)];
    WindowSystem& windows = p_.window.Windows();
    if (!StartsWithLower(address, "http")) {
        windows.ShowMessage("Sorry, " + address + " Is Not A Valid Web URL.");
        return;
    }
    ShowAllLinks(p_.window, p_.flags);
    txtFileName_Click();
    if (p_.settings.ProgramMode == kLocalMode) {
        if (path.empty()) {
            windows.ShowMessage("Sorry, can't open the remote link " + p_.session.LineBreak + address + p_.session.LineBreak +
                                " in Quorvantis Local Mode.");
            return;
        }
        address = path;
    }
    p_.session.WizardFromList = kSet;
    p_.session.WizardListIndex = p_.window.txtFileName.ListIndex();
    p_.window.TextFileName.SetText(address);
    ComOpen_Click();
    p_.session.WizardFromList = kClear;
}

}  // namespace qv
