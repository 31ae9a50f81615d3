#include "mainwindow/web_commands.h"

#include "platform/files.h"
#include "platform/url_parts.h"
#include "text/basic_text.h"

namespace qv {

std::size_t WebCommands::CurrentLink() const {
    const std::int32_t link = p_.window.List1.ItemData(p_.window.List1.ListIndex());
    return p_.session.Links.Has(link) ? static_cast<std::size_t>(link) : 0;
}

void WebCommands::MenuViewBrowser_Click() {
    const ListBox& documents = p_.window.txtFileName;
    if (p_.settings.ProgramMode == kLocalMode)
        Show("\"" + FileUrl(p_.session.DocumentPath) + "\"");
    else
        Show(documents.Text(documents.ListIndex()));
}

void WebCommands::MenuViewEditor_Click() { p_.programs.Start(p_.settings.EditorPath, {NativePath(p_.session.DocumentPath)}); }

void WebCommands::MenuViewWhois_Click() { Show(services::WhoisOfDocument(SplitUrl(Trim(Address())).Server)); }

void WebCommands::MenuLinkBrowser_Click() {
    const std::string& path = p_.session.Links.LinkPaths[CurrentLink()];
    const bool local = p_.settings.ProgramMode == kLocalMode && !path.empty();
    Show(local ? "\"" + FileUrl(path) + "\"" : LinkUrl());
}

void WebCommands::MenuLinkWhois_Click() {
    p_.flags.HeaderBuffer.clear();
    Show(services::WhoisOfLink(SplitUrl(Trim(LinkUrl())).Server));
}

}  // namespace qv
