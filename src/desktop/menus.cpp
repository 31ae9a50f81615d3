#include "desktop/menus.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>
#include <nlohmann/json.hpp>

#include "desktop/qt_text.h"

namespace qv {

Menus::Menus(Form& form, QMenuBar& bar) : bar_(bar) {
    for (Menu* menu : form.Menus()) bar_.addMenu(Make(*menu));
}

QMenu* Menus::Make(Menu& menu) {
    auto* shown = new QMenu(&bar_);
    actions_[&menu] = shown->menuAction();
    Fill(*shown, menu);
    connect(shown, &QMenu::aboutToShow, this, [this, &menu] { Opening(menu); });
    for (const Aspect aspect : {Aspect::Caption, Aspect::Enabled, Aspect::Visible}) Show(menu, aspect);
    return shown;
}

void Menus::Fill(QMenu& shown, Menu& menu) {
    for (Menu* entry : menu.Entries()) {
        if (entry == nullptr) {
            shown.addSeparator();
            continue;
        }
        if (!entry->Entries().empty()) {
            shown.addMenu(Make(*entry));
            continue;
        }
        QAction* action = shown.addAction("");
        actions_[entry] = action;
        connect(action, &QAction::triggered, this, [this, entry] {
            if (released_) return;
            Show(*entry, Aspect::Value);  // Qt turns the tick over by itself
            entry->Click();
        });
        for (const Aspect aspect : {Aspect::Caption, Aspect::Enabled, Aspect::Visible, Aspect::Value}) Show(*entry, aspect);
    }
}

void Menus::Opening(Menu& menu) {
    if (!released_ && !poppingUp_) menu.Click();
}

void Menus::Show(const Menu& menu, Aspect aspect) {
    const auto found = actions_.find(&menu);
    if (released_ || found == actions_.end()) return;
    QAction& action = *found->second;
    if (aspect == Aspect::Caption) action.setText(ToQt(menu.Caption()));
    if (aspect == Aspect::Enabled) action.setEnabled(menu.Enabled());
    if (aspect == Aspect::Visible) action.setVisible(menu.Visible());
    if (aspect != Aspect::Value || !menu.Entries().empty()) return;
    if (menu.Checked()) action.setCheckable(true);
    if (action.isCheckable()) action.setChecked(menu.Checked());
}

void Menus::Release() { released_ = true; }

void Menus::PopUp(const Menu& menu) {
    const auto found = actions_.find(&menu);
    if (released_ || found == actions_.end()) return;
    poppingUp_ = true;
    found->second->menu()->popup(QCursor::pos());
    poppingUp_ = false;
}

void Menus::Open(const Menu& menu) {
    const auto found = actions_.find(&menu);
    if (found == actions_.end()) return;
    if (menu.ParentMenu() == nullptr) {
        bar_.setActiveAction(found->second);
        return;
    }
    Open(*menu.ParentMenu());
    const auto above = actions_.find(menu.ParentMenu());
    above->second->menu()->setActiveAction(found->second);  // a sub-menu opens with it
}

void Menus::Choose(const Menu& entry) {
    const auto found = actions_.find(&entry);
    if (found == actions_.end() || entry.ParentMenu() == nullptr) return;
    QMenu* shown = actions_.find(entry.ParentMenu())->second->menu();
    shown->setActiveAction(found->second);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(shown, &press);
}

void Menus::CloseAll() {
    while (QWidget* popup = QApplication::activePopupWidget())
        if (!popup->close()) break;
}

nlohmann::json Menus::Entries(const Menu& menu) const {
    nlohmann::json entries = nlohmann::json::array();
    for (const Menu* entry : menu.Entries()) {
        if (entry == nullptr) {
            entries.push_back({{"separator", true}});
            continue;
        }
        const QAction& action = *actions_.at(entry);
        nlohmann::json told = {{"name", entry->AddressName()},
                               {"caption", FromQt(action.text())},
                               {"enabled", action.isEnabled()},
                               {"visible", action.isVisible()},
                               {"checked", action.isChecked()}};
        if (!entry->Entries().empty()) told["entries"] = Entries(*entry);
        entries.push_back(std::move(told));
    }
    return entries;
}

void Menus::AddState(const Menu& menu, nlohmann::json& state) const {
    const auto found = actions_.find(&menu);
    if (found == actions_.end()) return;
    const QAction& action = *found->second;
    state["caption"] = FromQt(action.text());
    state["enabled"] = action.isEnabled();
    state["visible"] = action.isVisible();
    state["checked"] = action.isChecked();
}

}  // namespace qv
