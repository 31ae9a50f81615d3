// Commands that send the user's browser, editor or the services on the Web to the selected document or the current link.
#pragma once

#include <string>

#include "mainwindow/browser.h"
#include "mainwindow/check_form.h"
#include "platform/programs.h"
#include "session/session.h"

namespace qv {

class WebCommands {
   public:
    struct Parts {
        CheckForm& window;
        const Session& session;
        const Settings& settings;
        RunFlags& flags;
        Programs& programs;
        Browser& browser;
    };
    explicit WebCommands(Parts parts) : p_(parts) {}

    void MenuViewBrowser_Click();
    void MenuViewEditor_Click();
    void MenuViewWhois_Click();
    void MenuViewAlta_Click() { Show(services::AltaVista(Address(), false)); }
    void MenuViewExcite_Click() { Show(services::Excite(Address())); }
    void MenuViewInfo_Click() { Show(services::InfoSeek(Address())); }

    void MenuLinkBrowser_Click();
    void MenuLinkWhois_Click();
    void MenuLinkSearch1_Click() { Show(services::AltaVista(LinkText(), true)); }
    void MenuLinkSearch2_Click() { Show(services::Excite(LinkText())); }
    void MenuLinkSearch3_Click() { Show(services::Google(LinkText())); }
    void MenuLinkURL1_Click() { Show(services::AltaVista(LinkUrl(), false)); }
    void MenuLinkURL2_Click() { Show(services::Excite(LinkUrl())); }
    void MenuLinkURL3_Click() { Show(services::Google(LinkUrl())); }
    void MenuHelpHome_Click() { Show(services::kHomePage); }

   private:
    void Show(const std::string& address) { p_.browser.OpenInBrowser(address); }
    const std::string& Address() const { return p_.window.TextFileName.Text(); }
    std::size_t CurrentLink() const;  // 0, the empty element, without a current row
    const std::string& LinkText() const { return p_.session.Links.LinkTexts[CurrentLink()]; }
    const std::string& LinkUrl() const { return p_.session.Links.LinkUrls[CurrentLink()]; }

    Parts p_;
};

}  // namespace qv
