// Message boxes and file dialogs.
#pragma once

#include <QDialog>
#include <QObject>
#include <vector>

#include "controls/window_system.h"

class QFileDialog;
class QMessageBox;

namespace qv {

class Prompts : public QObject {
   public:
    // `native`: file dialogs are the desktop's own where it has some.
    Prompts(WindowSystem& windows, bool native) : windows_(windows), native_(native) {}

    void ShowMessage(const MessageRequest& request, QWidget* parent);
    void ShowDialog(const FileDialogRequest& request, QWidget* parent);
    void CloseTop();  // the prompt on top has been answered

    // Answers the prompt on top at its own buttons. Whether the answer fits has been made sure before.
    void PressButton(const std::string& name);
    void Choose(const std::optional<std::string>& path);

   protected:
    // Of a box that only its buttons answer: neither its close box nor Escape does anything.
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    void Open(QDialog* dialog);
    static void TakeBackslashes(QFileDialog& dialog);
    WindowSystem& windows_;
    bool native_;
    std::vector<QDialog*> open_;  // the topmost last
};

// Filters of the program ("Name (x)|*.a;*.b|All|*.*") as Qt writes them ("Name (*.a *.b)").
QStringList FilterList(const std::string& filter);

}  // namespace qv
