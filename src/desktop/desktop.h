// The windows on the screen: opens one for each form that is shown, and closes it with its form.
#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

#include "controls/window_system.h"
#include "desktop/form_window.h"
#include "desktop/prompts.h"

namespace qv {

class Desktop : public QObject, public WindowListener {
   public:
    // `native`: whether the desktop's own file dialogs may be used.
    Desktop(WindowSystem& windows, bool native);

    FormWindow* WindowOf(const Form& form) const;  // null if the form isn't shown
    Prompts& OpenPrompts() { return prompts_; }

    void FormShown(Form& form) override;
    void FormClosed(const Form& form) override;
    void MessageShown(const MessageRequest& request) override;
    void DialogShown(const FileDialogRequest& request) override;
    void PromptClosed() override;
    void Beeped() override;
    void FormActivated(Form& form) override;
    void MenuPoppedUp(Menu& menu) override;

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    FormWindow* Top() const;
    void ShareClipboard();

    WindowSystem& windows_;
    Prompts prompts_;
    std::vector<FormWindow*> open_;
    bool settingClipboard_ = false;
};

}  // namespace qv
