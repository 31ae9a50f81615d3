// Widgets that Qt doesn't have as we want them.
#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QTabBar>
#include <functional>

namespace qv {

// A label of plain text. `cut` makes it one line that may be narrower than its text, which then ends in dots and is whole in
// the tool tip; else it wraps.
class TextLabel : public QLabel {
   public:
    enum class Style { Line, Wrapped, Cut };
    explicit TextLabel(Style style, QWidget* parent = nullptr);
    QSize minimumSizeHint() const override;

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    Style style_;
};

// A place that is painted by a function.
class PictureView : public QWidget {
   public:
    using Paint = std::function<void(QPainter&, const QRect&)>;
    explicit PictureView(QWidget* parent = nullptr) : QWidget(parent) {}
    void SetPaint(Paint paint) { paint_ = std::move(paint); }
    std::function<void(int)> Resized;  // the new width, in pixels

   protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

   private:
    Paint paint_;
};

// A page with its title above what its layout `Content` holds.
class TitledPage : public QWidget {
   public:
    explicit TitledPage(QWidget* parent = nullptr);
    TextLabel& Title() const { return *title_; }
    QVBoxLayout& Content() const { return *content_; }

   private:
    TextLabel* title_;
    QVBoxLayout* content_;
};

// Tabs that change only when they are told to: the user's wish is asked first.
class TabBar : public QTabBar {
   public:
    explicit TabBar(QWidget* parent = nullptr);
    std::function<void(int)> Wished;  // a tab from 0
    void Wish(int tab);

   protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

}  // namespace qv
