// Shows a ListBox of any length: rows are drawn when they are seen, straight from the list.
#pragma once

#include <QAbstractScrollArea>
#include <functional>
#include <optional>
#include <string_view>

#include "controls/list_box.h"

namespace qv {

class ListView : public QAbstractScrollArea {
   public:
    explicit ListView(QWidget* parent = nullptr);

    void SetList(ListBox* list);  // null: nothing is shown and nothing done any more
    const ListBox* List() const { return list_; }

    // The beginning of a row that stands out by a colour: how many characters, and which colour.
    struct Lead {
        int characters = 0;
        QColor colour;
    };
    void SetLead(std::function<std::optional<Lead>(std::string_view text)> lead) { lead_ = std::move(lead); }

    // What of the list changed. Cheap for each row of a long fill or run: bars and place are set once, at the next turn.
    void RowsChanged();
    void RowChanged(int row);
    void CurrentChanged();

    void SetFixedPitch();
    int WidthOf(int characters) const;  // in a fixed-pitch font, pixels
    int TextLeft() const;             // where a row's text begins when it isn't scrolled, from the left of the view
    int ScrolledBy() const;           // pixels to the right
    QRect RowRect(int row) const;     // on the viewport; empty for no row
    int RowAt(const QPoint& at) const;  // -1 for none
    int LastRowSeen() const;            // whole; -1 for none
    void EnsureVisible(int row);
    // The rows themselves tell how far the list can be scrolled sideways, as well as the list's extent. For short lists.
    void SetMeasuresRows() { measuresRows_ = true; }
    void SetHintRows(int rows) { hintRows_ = rows; }  // how many rows the view asks room for
    void SetPlaceholder(const QString& text) { placeholder_ = text; }  // shown while there are no rows
    std::function<void()> Scrolled;  // sideways, or the view's width changed

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

   protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

   private:
    void Measure();
    void Schedule();
    void Settle();
    void SetBars();
    long Extent() const;  // pixels
    void SetBarsIfDue();
    void PaintRow(QPainter& painter, int row, const QRect& place) const;
    void PaintText(QPainter& painter, int row, const QRect& place, const QColor& colour) const;
    bool MoveCurrent(const QKeyEvent& event);

    ListBox* list_ = nullptr;
    std::function<std::optional<Lead>(std::string_view)> lead_;
    int rowHeight_ = 1;
    double characterWidth_ = 1;  // pixels; of a narrow one where the font has no fixed pitch
    QString placeholder_;
    int hintRows_ = 12;
    bool measuresRows_ = false;
    int shownCurrent_ = -1;
    bool scheduled_ = false;
    bool followDue_ = false;  // the current row has changed and is to be seen
    bool barsDue_ = false;
};

}  // namespace qv
