// The menus of a form: a menu bar, and the same menus popping up at the pointer.
#pragma once

#include <QMenuBar>
#include <nlohmann/json_fwd.hpp>
#include <unordered_map>

#include "controls/form.h"
#include "controls/menu.h"

namespace qv {

class Menus : public QObject {
   public:
    // Fills the bar with the form's menus. The bar belongs to its window.
    Menus(Form& form, QMenuBar& bar);

    void Show(const Menu& menu, Aspect aspect);
    void Release();  // the menus are about to go

    void PopUp(const Menu& menu);  // at the pointer; its opening rule has run
    // Opens a menu, a sub-menu with those above it, so that the opening rules run.
    void Open(const Menu& menu);
    void Choose(const Menu& entry);  // of an open menu: by the keyboard
    static void CloseAll();

    nlohmann::json Entries(const Menu& menu) const;             // as they are shown
    void AddState(const Menu& menu, nlohmann::json& state) const;

   private:
    QMenu* Make(Menu& menu);
    void Fill(QMenu& shown, Menu& menu);
    void Opening(Menu& menu);

    QMenuBar& bar_;
    std::unordered_map<const Menu*, QAction*> actions_;
    bool released_ = false;
    bool poppingUp_ = false;
};

}  // namespace qv
