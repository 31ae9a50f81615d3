#include "desktop/desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScreen>
#include <algorithm>

#include "desktop/binder.h"
#include "desktop/list_accessible.h"
#include "desktop/qt_text.h"
#include "desktop/views/views.h"

namespace qv {

Desktop::Desktop(WindowSystem& windows, bool native) : windows_(windows), prompts_(windows, native) {
    windows.Listen(this);
    TellListsToAssistiveTools();
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        const QSize size = screen->availableGeometry().size();
        windows.SetScreen(size.width(), size.height());
    }
    ShareClipboard();
    qApp->installEventFilter(this);
}

// Enter and Escape that are held down press nothing again, in no window that comes up meanwhile.
bool Desktop::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !static_cast<QKeyEvent*>(event)->isAutoRepeat()) return false;
    const Key key = KeyOf(*static_cast<QKeyEvent*>(event));
    const bool inPage = qobject_cast<QPlainTextEdit*>(QApplication::focusWidget()) != nullptr;
    return key == Key::Escape || (key == Key::Enter && !inPage) || QObject::eventFilter(watched, event);
}

// The program's clipboard and the system's are one.
void Desktop::ShareClipboard() {
    QClipboard* system = QGuiApplication::clipboard();
    windows_.ClipboardChanged = [this, system](const std::string& text) {
        if (!settingClipboard_) system->setText(ToQt(text));
    };
    connect(system, &QClipboard::dataChanged, this, [this, system] {
        const std::string text = FromQt(system->text());
        if (system->ownsClipboard() || text == windows_.Clipboard()) return;
        settingClipboard_ = true;
        windows_.SetClipboard(text);
        settingClipboard_ = false;
    });
}

FormWindow* Desktop::WindowOf(const Form& form) const {
    const auto found = std::find_if(open_.begin(), open_.end(), [&](const FormWindow* w) { return w->Bound() == &form; });
    return found == open_.end() ? nullptr : *found;
}

// The window that a new one stands in front of.
FormWindow* Desktop::Top() const {
    for (const Form* form : windows_.Forms())
        if (FormWindow* window = WindowOf(*form); window != nullptr && window->isVisible()) return window;
    return nullptr;
}

void Desktop::FormShown(Form& form) {
    if (WindowOf(form) != nullptr) return;  // it was hidden and has come back
    FormWindow* parent = Top();
    FormWindow* window = MakeView(form, parent != nullptr && parent->windowType() == Qt::SplashScreen ? nullptr : parent);
    open_.push_back(window);
    window->Open();
}

void Desktop::FormClosed(const Form& form) {
    FormWindow* window = WindowOf(form);
    if (window == nullptr) return;
    std::erase(open_, window);
    window->Release();
    window->hide();
    // Windows that stood in front of it go on without it.
    for (FormWindow* other : open_) {
        if (other->parentWidget() != window) continue;
        const bool seen = other->isVisible();
        other->setParent(nullptr, other->windowFlags());  // this hides it
        other->setVisible(seen);
    }
    window->deleteLater();
    if (FormWindow* next = Top()) next->BringUp();
}

void Desktop::MessageShown(const MessageRequest& request) { prompts_.ShowMessage(request, Top()); }
void Desktop::DialogShown(const FileDialogRequest& request) { prompts_.ShowDialog(request, Top()); }
void Desktop::PromptClosed() {
    prompts_.CloseTop();
    if (FormWindow* below = Top()) below->BringUp();
}
void Desktop::Beeped() { QApplication::beep(); }

void Desktop::FormActivated(Form& form) {
    if (FormWindow* window = WindowOf(form)) window->BringUp();
}

void Desktop::MenuPoppedUp(Menu& menu) {
    FormWindow* window = WindowOf(menu.ParentForm());
    if (window != nullptr && window->MenuSet() != nullptr) window->MenuSet()->PopUp(menu);
}

}  // namespace qv
