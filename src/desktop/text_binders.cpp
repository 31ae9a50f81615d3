#include "desktop/text_binders.h"

#include <QEvent>
#include <nlohmann/json.hpp>

#include "desktop/qt_text.h"
#include "text/basic_text.h"

namespace qv {
namespace {

QString PageText(const std::string& text) { return ToQt(text).replace("\r\n", "\n"); }
std::string PageBytes(const QString& text) { return FromQt(QString(text).replace("\n", "\r\n")); }

int Width(const std::string& text, std::size_t bytes) {
    return static_cast<int>(ToQt(std::string_view(text).substr(0, bytes)).size());
}

}  // namespace

LineBinder::LineBinder(TextBox& box, QLineEdit* widget) : Binder(box, widget), line_(widget) {
    line_->setReadOnly(box.ReadOnly());
    line_->setEchoMode(box.Masked() ? QLineEdit::Password : QLineEdit::Normal);
    connect(line_, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (auto* live = Live<TextBox>()) live->SetText(FromQt(text));
    });
    connect(line_, &QLineEdit::selectionChanged, this, [this] { TakeSelection(); });
}

void LineBinder::TakeSelection() {
    auto* box = Live<TextBox>();
    if (box == nullptr || line_->text() != ToQt(box->Text())) return;
    const qsizetype start = line_->hasSelectedText() ? line_->selectionStart() : 0;
    const qsizetype length = line_->selectedText().size();
    const std::string before = FromQt(line_->text().left(start));
    box->Select(before.size(), FromQt(line_->text().mid(start, length)).size());
}

void LineBinder::ShowSelection() {
    const auto& box = As<TextBox>();
    const int start = Width(box.Text(), box.SelectionStart());
    const int length = Width(box.Text(), box.SelectionStart() + box.SelectionLength()) - start;
    if (line_->selectedText().size() == length && (length == 0 || line_->selectionStart() == start)) return;
    if (length == 0)
        line_->deselect();
    else
        line_->setSelection(start, length);
}

void LineBinder::ShowAspect(Aspect aspect) {
    const QString text = ToQt(As<TextBox>().Text());
    if (aspect == Aspect::Text && line_->text() != text) {
        line_->setText(text);
        line_->setCursorPosition(0);
    }
    if (aspect == Aspect::Selection) ShowSelection();
}

void LineBinder::AddWidgetState(nlohmann::json& state) const {
    state["text"] = FromQt(line_->text());
    state["selected"] = FromQt(line_->hasSelectedText() ? line_->text().mid(line_->selectionStart(), line_->selectionLength())
                                                        : QString());
}

void LineBinder::MousePressed() {
    if (auto* box = Live<TextBox>()) box->MouseDown();
}

PageBinder::PageBinder(TextBox& box, QPlainTextEdit* widget) : Binder(box, widget), page_(widget) {
    page_->setTabChangesFocus(true);
    page_->setReadOnly(box.ReadOnly());
    connect(page_, &QPlainTextEdit::textChanged, this, [this] {
        auto* live = Live<TextBox>();
        if (live != nullptr && page_->toPlainText() != PageText(live->Text())) live->SetText(PageBytes(page_->toPlainText()));
    });
}

void PageBinder::ShowAspect(Aspect aspect) {
    const auto& box = As<TextBox>();
    if (aspect == Aspect::Text && page_->toPlainText() != PageText(box.Text())) page_->setPlainText(PageText(box.Text()));
    if (aspect != Aspect::Selection || box.SelectionLength() == 0) return;
    QTextCursor cursor = page_->textCursor();
    const auto place = [&](std::size_t bytes) { return static_cast<int>(PageText(box.Text().substr(0, bytes)).size()); };
    cursor.setPosition(place(box.SelectionStart()));
    cursor.setPosition(place(box.SelectionStart() + box.SelectionLength()), QTextCursor::KeepAnchor);
    page_->setTextCursor(cursor);
}

void PageBinder::AddWidgetState(nlohmann::json& state) const {
    const std::string& text = As<TextBox>().Text();
    state["text"] = page_->toPlainText() == PageText(text) ? FromQt(ToQt(text)) : PageBytes(page_->toPlainText());
    state["selected"] = PageBytes(page_->textCursor().selectedText().replace(QChar::ParagraphSeparator, '\n'));
}

void PageBinder::MousePressed() {
    if (auto* box = Live<TextBox>()) box->MouseDown();
}

ComboBinder::ComboBinder(ComboBox& combo, QComboBox* widget) : Binder(combo, widget), combo_(widget) {
    combo_->setEditable(true);
    combo_->setInsertPolicy(QComboBox::NoInsert);
    combo_->setCompleter(nullptr);  // it would put in what wasn't typed
    combo_->lineEdit()->installEventFilter(this);
    combo_->setMinimumContentsLength(10);
    combo_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    // Else a typed text that equals an item would pick that item when the box is left.
    disconnect(combo_->lineEdit(), &QLineEdit::editingFinished, combo_, nullptr);
    connect(combo_->lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
        if (auto* live = Live<ComboBox>()) live->SetText(FromQt(text));
    });
    connect(combo_, &QComboBox::activated, this, [this](int item) {
        if (auto* live = Live<ComboBox>()) live->ClickItem(item);
    });
}

void ComboBinder::ShowItems() {
    const auto& combo = As<ComboBox>();
    QStringList items;
    for (int item = 0; item < combo.Count(); ++item) items += ToQt(combo.ItemText(item));
    combo_->clear();
    combo_->addItems(items);
    ShowText();
}

void ComboBinder::ShowText() {
    const auto& combo = As<ComboBox>();
    const QString text = ToQt(combo.Text());
    const int cursor = combo_->lineEdit()->cursorPosition();
    const bool typed = combo_->currentText() == text;  // by the user: his place in the text stays
    if (combo_->currentIndex() != combo.ListIndex()) combo_->setCurrentIndex(combo.ListIndex());
    if (combo_->currentText() != text) combo_->setEditText(text);
    combo_->lineEdit()->setCursorPosition(typed ? cursor : 0);
}

void ComboBinder::ShowAspect(Aspect aspect) {
    if (aspect == Aspect::Items) ShowItems();
    if (aspect == Aspect::Text || aspect == Aspect::Index) ShowText();
    if (aspect == Aspect::Selection) combo_->lineEdit()->selectAll();
}

void ComboBinder::AddWidgetState(nlohmann::json& state) const {
    const auto& combo = As<ComboBox>();
    state["items"] = nlohmann::json::array();
    for (int item = 0; item < combo_->count(); ++item)
        state["items"].push_back({{"text", FromQt(combo_->itemText(item))},
                                  {"data", combo.ItemData(item)},
                                  {"selected", item == combo_->currentIndex()}});
    state["index"] = combo_->currentIndex();
    state["text"] = FromQt(combo_->currentText());
}

// A turn of the wheel over the box belongs to the window: it must not pick another item.
bool ComboBinder::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::MouseButtonPress && watched == combo_->lineEdit() && combo_->lineEdit()->isReadOnly() &&
        combo_->isEnabled()) {
        combo_->showPopup();  // where nothing can be typed the whole box is its arrow
        return true;
    }
    return Binder::eventFilter(watched, event);
}

}  // namespace qv
