#include "desktop/prompts.h"

#include <QDir>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/mouse.h"
#include "desktop/qt_text.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr std::array<std::pair<const char*, QMessageBox::StandardButton>, 4> kButtons = {
    {{"OK", QMessageBox::Ok}, {"Cancel", QMessageBox::Cancel}, {"Yes", QMessageBox::Yes}, {"No", QMessageBox::No}}};

bool IsFolderPicker(const FileDialogRequest& request) { return request.name == "*."; }

QString Native(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return ToQt(path);
}

QPushButton* AddButton(QMessageBox& box, const std::string& name) {
    for (const auto& [known, button] : kButtons)
        if (name == known) return box.addButton(button);
    return box.addButton(ToQt(name), QMessageBox::AcceptRole);
}

}  // namespace

QStringList FilterList(const std::string& filter) {
    const QStringList parts = ToQt(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString name = parts[i].left(parts[i].indexOf('(')).trimmed();
        QString masks = parts[i + 1];
        // Programs have no ending of their own here.
        filters += name + " (" + masks.replace(';', ' ').replace("*.*", "*").replace("*.exe", "*") + ")";
    }
    return filters;
}

void Prompts::Open(QDialog* dialog) {
    dialog->setWindowModality(Qt::ApplicationModal);
    open_.push_back(dialog);
    dialog->show();
    dialog->activateWindow();
}

void Prompts::ShowMessage(const MessageRequest& request, QWidget* parent) {
    auto* box = new QMessageBox(parent);
    box->setIcon(request.question ? QMessageBox::Question : QMessageBox::Information);
    box->setWindowTitle(ToQt(request.title));
    box->setTextFormat(Qt::PlainText);
    box->setText(Wrappable(request.text));
    for (const std::string& name : request.buttons) {
        QPushButton* button = AddButton(*box, name);
        button->setObjectName(QString::fromStdString(name));
        if (name == request.defaultButton) box->setDefaultButton(button);
        if (name == "Cancel") box->setEscapeButton(button);
    }
    if (request.buttons.size() == 1) box->setEscapeButton(box->buttons().constFirst());
    if (box->escapeButton() == nullptr) box->installEventFilter(this);
    connect(box, &QDialog::finished, this, [this, box] {
        const QAbstractButton* pressed = box->clickedButton() != nullptr ? box->clickedButton() : box->escapeButton();
        if (!open_.empty() && open_.back() == box && pressed != nullptr) windows_.Answer(pressed->objectName().toStdString());
    });
    Open(box);
}

bool Prompts::eventFilter(QObject* watched, QEvent* event) {
    const bool escape = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (event->type() != QEvent::Close && !escape) return QObject::eventFilter(watched, event);
    event->ignore();
    return true;
}

// What is typed may hold slashes of either kind.
void Prompts::TakeBackslashes(QFileDialog& dialog) {
    auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
    if (name == nullptr) return;  // the desktop's own dialog
    connect(name, &QLineEdit::textEdited, name, [name](const QString& text) {
        if (!text.contains('\\')) return;
        const int at = name->cursorPosition();
        name->setText(QString(text).replace('\\', '/'));
        name->setCursorPosition(at);
    });
}

void Prompts::ShowDialog(const FileDialogRequest& request, QWidget* parent) {
    auto* dialog = new QFileDialog(parent, ToQt(request.title));
    dialog->setOption(QFileDialog::DontUseNativeDialog, !native_);
    dialog->setOption(QFileDialog::ReadOnly);  // it picks, and neither renames nor deletes
    dialog->setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setDirectory(request.folder.empty() ? QDir::homePath() : Native(request.folder));
    if (IsFolderPicker(request)) {
        dialog->setFileMode(QFileDialog::Directory);
        dialog->setOption(QFileDialog::ShowDirsOnly);
    } else {
        const QStringList filters = FilterList(request.filter);
        dialog->setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
        dialog->setNameFilters(filters);
        if (request.filterIndex > 0 && request.filterIndex <= filters.size()) dialog->selectNameFilter(filters[request.filterIndex - 1]);
        if (request.save || request.name.find('*') == std::string::npos) dialog->selectFile(Native(request.name));
    }
    TakeBackslashes(*dialog);
    const bool folder = IsFolderPicker(request);
    connect(dialog, &QDialog::finished, this, [this, dialog, folder](int result) {
        if (open_.empty() || open_.back() != dialog) return;
        const QStringList chosen = dialog->selectedFiles();
        if (result != QDialog::Accepted || chosen.isEmpty()) {
            windows_.Answer(std::nullopt);
            return;
        }
        std::string path = FromQt(chosen.constFirst());
        if (folder && !EndsWith(path, "/")) path += "/";
        windows_.Answer(path);
    });
    Open(dialog);
}

void Prompts::CloseTop() {
    if (open_.empty()) return;
    QDialog* top = open_.back();
    open_.pop_back();
    top->disconnect(this);
    top->hide();
    top->deleteLater();
}

void Prompts::PressButton(const std::string& name) {
    if (open_.empty()) return;
    if (auto* button = open_.back()->findChild<QPushButton*>(QString::fromStdString(name))) mouse::Click(*button);
}

// The dialog would ask about a file that isn't there; whoever answers from outside has made up his mind.
void Prompts::Choose(const std::optional<std::string>& path) {
    if (open_.empty()) return;
    if (!path)
        open_.back()->reject();
    else
        windows_.Answer(path);
}

}  // namespace qv
