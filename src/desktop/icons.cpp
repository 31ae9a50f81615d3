#include "desktop/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainterPath>
#include <QPalette>
#include <array>
#include <utility>

#include "desktop/theme.h"

namespace qv {
namespace {

// Everything is drawn on a field of 24 by 24.
constexpr qreal kField = 24;

struct Brush {
    QPainter& painter;
    QColor line;     // outlines
    QColor accent;   // what the picture is about
    QColor warning;  // taking away
    QColor good;

    void Stroke(const QPainterPath& path, const QColor& colour, qreal width = 1.6) const {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(path);
    }
    void Fill(const QPainterPath& path, const QColor& colour) const { painter.fillPath(path, colour); }
};

using Draw = void (*)(const Brush&);

QPainterPath Lines(std::initializer_list<QPointF> points) {
    QPainterPath path;
    for (const QPointF& point : points) path.isEmpty() && path.elementCount() == 0 ? path.moveTo(point) : path.lineTo(point);
    return path;
}

QPainterPath Circle(qreal x, qreal y, qreal radius) {
    QPainterPath path;
    path.addEllipse(QPointF(x, y), radius, radius);
    return path;
}

void Globe(const Brush& b, qreal x, qreal y, qreal r, const QColor& colour) {
    b.Stroke(Circle(x, y, r), colour);
    QPainterPath inner;
    inner.addEllipse(QPointF(x, y), r * 0.45, r);
    inner.moveTo(x - r, y);
    inner.lineTo(x + r, y);
    b.Stroke(inner, colour, 1.2);
}

void Page(const Brush& b) {
    QPainterPath page = Lines({{5, 3}, {13, 3}, {18, 8}, {18, 21}, {5, 21}});
    page.closeSubpath();
    b.Stroke(page, b.line);
    b.Stroke(Lines({{13, 3}, {13, 8}, {18, 8}}), b.line, 1.2);
}

// A page whose lower right corner is left free for a sign.
void PageWithCorner(const Brush& b) {
    b.Stroke(Lines({{9, 20}, {4, 20}, {4, 2.5}, {12, 2.5}, {17, 7.5}, {17, 10}}), b.line);
    b.Stroke(Lines({{12, 2.5}, {12, 7.5}, {17, 7.5}}), b.line, 1.2);
}

void Chain(const Brush& b) {
    b.painter.save();
    b.painter.translate(9.5, 9.5);
    b.painter.rotate(-45);
    QPainterPath links;
    links.addRoundedRect(QRectF(-8.5, -2.8, 9, 5.6), 2.8, 2.8);
    links.addRoundedRect(QRectF(-0.5, -2.8, 9, 5.6), 2.8, 2.8);
    b.Stroke(links, b.line, 1.7);
    b.painter.restore();
}

void Tick(const Brush& b) { b.Stroke(Lines({{12.5, 18}, {15.5, 21}, {21.5, 14}}), b.good, 2.4); }
void Cross(const Brush& b) {
    b.Stroke(Lines({{14, 14}, {21, 21}}), b.warning, 2.4);
    b.Stroke(Lines({{21, 14}, {14, 21}}), b.warning, 2.4);
}
void ArrowOut(const Brush& b) {
    b.Stroke(Lines({{13.5, 21.5}, {21, 14}}), b.accent, 2);
    b.Stroke(Lines({{15, 13.5}, {21.3, 13.7}, {21.5, 20}}), b.accent, 2);
}
void Glass(const Brush& b) {
    b.Stroke(Circle(16, 15.5, 4), b.accent, 2);
    b.Stroke(Lines({{19, 18.5}, {22, 21.5}}), b.accent, 2.4);
}
void Question(const Brush& b) {
    QPainterPath hook;
    hook.moveTo(14, 13.5);
    hook.cubicTo(14, 9.5, 21.5, 9.5, 21, 13.5);
    hook.cubicTo(20.7, 15.5, 17.6, 15.5, 17.6, 18);
    b.Stroke(hook, b.warning, 2.2);
    b.Fill(Circle(17.6, 21.3, 1.4), b.warning);
}

void InternetMode(const Brush& b) { Globe(b, 12, 12, 9, b.accent); }

void LocalMode(const Brush& b) {
    QPainterPath folder = Lines({{3, 19.5}, {3, 5}, {9, 5}, {11, 7.5}, {21, 7.5}, {21, 19.5}});
    folder.closeSubpath();
    b.Stroke(folder, b.line);
    b.Stroke(Lines({{3, 11}, {21, 11}}), b.accent);
}

void BookmarksMode(const Brush& b) {
    QPainterPath ribbon = Lines({{7, 3}, {17, 3}, {17, 21}, {12, 16.5}, {7, 21}});
    ribbon.closeSubpath();
    QColor tint = b.accent;
    tint.setAlphaF(0.25F);
    b.Fill(ribbon, tint);
    b.Stroke(ribbon, b.accent);
}

void Enterprise(const Brush& b) {
    for (const qreal y : {5.0, 12.0, 19.0}) {
        b.Stroke(Lines({{3, y}, {5, y + 2}, {8.5, y - 2}}), b.good, 1.9);
        b.Stroke(Lines({{12, y}, {21, y}}), b.line, 1.8);
    }
}

void New(const Brush& b) {
    Page(b);
    b.Stroke(Lines({{11.5, 11}, {11.5, 18}}), b.accent, 2);
    b.Stroke(Lines({{8, 14.5}, {15, 14.5}}), b.accent, 2);
}

void SaveReports(const Brush& b) {
    PageWithCorner(b);
    b.Stroke(Lines({{7.5, 11}, {13, 11}}), b.line, 1.3);
    b.Stroke(Lines({{7.5, 14.5}, {11, 14.5}}), b.line, 1.3);
    b.Stroke(Lines({{17.5, 12.5}, {17.5, 20.5}}), b.accent, 2.2);
    b.Stroke(Lines({{13.8, 17.2}, {17.5, 21}, {21.2, 17.2}}), b.accent, 2.2);
}

void CopyReports(const Brush& b) {
    b.Stroke(Lines({{7, 16}, {3.5, 16}, {3.5, 3}, {14, 3}, {14, 6.5}}), b.line);
    QPainterPath front;
    front.addRect(QRectF(8.5, 8, 11.5, 13));
    b.Stroke(front, b.accent);
    b.Stroke(Lines({{11.5, 12.5}, {17, 12.5}}), b.accent, 1.3);
    b.Stroke(Lines({{11.5, 16.5}, {17, 16.5}}), b.accent, 1.3);
}

void CopyUrl(const Brush& b) {
    Chain(b);
    QPainterPath sheet;
    sheet.addRect(QRectF(13.5, 12.5, 7.5, 9));
    b.Stroke(sheet, b.accent, 1.8);
}

void LinkBrowser(const Brush& b) {
    Chain(b);
    ArrowOut(b);
}
void LinkCheck(const Brush& b) {
    Chain(b);
    Tick(b);
}
void LinkView(const Brush& b) {
    Chain(b);
    Glass(b);
}
void LinkQuestionable(const Brush& b) {
    Chain(b);
    Question(b);
}
void DocumentDelete(const Brush& b) {
    PageWithCorner(b);
    Cross(b);
}
void DocumentReopen(const Brush& b) {
    PageWithCorner(b);
    QPainterPath turn;
    turn.arcMoveTo(QRectF(12.5, 12.5, 9, 9), 60);
    turn.arcTo(QRectF(12.5, 12.5, 9, 9), 60, 280);
    b.Stroke(turn, b.accent, 2);
    b.Stroke(Lines({{18.3, 10.6}, {19.6, 13.3}, {16.8, 14.6}}), b.accent, 1.8);
}
void DocumentSource(const Brush& b) {
    Page(b);
    b.Stroke(Lines({{9.5, 11.5}, {7.2, 14}, {9.5, 16.5}}), b.accent, 1.8);
    b.Stroke(Lines({{13.5, 11.5}, {15.8, 14}, {13.5, 16.5}}), b.accent, 1.8);
}
void DocumentEditor(const Brush& b) {
    PageWithCorner(b);
    QPainterPath pencil = Lines({{12, 21.5}, {12.8, 18.2}, {19.5, 11.5}, {22, 14}, {15.3, 20.7}});
    pencil.closeSubpath();
    b.Stroke(pencil, b.accent, 1.7);
}
void DocumentBrowser(const Brush& b) {
    PageWithCorner(b);
    ArrowOut(b);
}
void Program(const Brush& b) {
    QPainterPath plate;
    plate.addRoundedRect(QRectF(1, 1, 22, 22), 5, 5);
    b.Fill(plate, QColor(0x1f, 0x5f, 0x99));
    const Brush white{b.painter, Qt::white, Qt::white, Qt::white, QColor(0x9b, 0xe5, 0x64)};
    Chain(white);
    Tick(white);
}

constexpr std::array<std::pair<std::string_view, Draw>, 17> kTools = {{{"ToolInterMode", InternetMode},
                                                                       {"ToolLocalMode", LocalMode},
                                                                       {"ToolZephonMode", BookmarksMode},
                                                                       {"ToolEnter", Enterprise},
                                                                       {"ToolOpenDoc", New},
                                                                       {"ToolSave", SaveReports},
                                                                       {"ToolCopyReports", CopyReports},
                                                                       {"ToolCopyURL", CopyUrl},
                                                                       {"ToolLinkBrowser", LinkBrowser},
                                                                       {"ToolLinkCheck", LinkCheck},
                                                                       {"ToolLinkView", LinkView},
                                                                       {"ToolLinkQuest", LinkQuestionable},
                                                                       {"ToolDocDelete", DocumentDelete},
                                                                       {"ToolDocReopen", DocumentReopen},
                                                                       {"ToolDocSource", DocumentSource},
                                                                       {"ToolDocEditor", DocumentEditor},
                                                                       {"ToolDocBrowser", DocumentBrowser}}};

void Paint(QPainter& painter, const QRect& place, Draw draw, bool enabled) {
    const QPalette palette = QApplication::palette();
    const QColor off = palette.color(QPalette::Disabled, QPalette::ButtonText);
    const bool dark = IsDark(palette);
    const auto ink = [&](const QColor& light, const QColor& onDark) { return !enabled ? off : dark ? onDark : light; };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const int side = std::min(place.width(), place.height());
    painter.translate(place.x() + (place.width() - side) / 2.0, place.y() + (place.height() - side) / 2.0);
    painter.scale(side / kField, side / kField);
    draw({painter, ink(palette.color(QPalette::Active, QPalette::ButtonText), palette.color(QPalette::Active, QPalette::ButtonText)),
          ink(QColor(0x1f, 0x6f, 0xb5), QColor(0x6c, 0xb6, 0xf0)), ink(QColor(0xc4, 0x35, 0x2b), QColor(0xff, 0x8a, 0x7a)),
          ink(QColor(0x2c, 0x8a, 0x3d), QColor(0x7a, 0xd8, 0x86))});
    painter.restore();
}

class LineIcon : public QIconEngine {
   public:
    explicit LineIcon(Draw draw) : draw_(draw) {}
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        Paint(*painter, rect, draw_, mode != QIcon::Disabled);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return drawn;
    }
    QIconEngine* clone() const override { return new LineIcon(draw_); }

   private:
    Draw draw_;
};

}  // namespace

QIcon ToolIcon(std::string_view toolName) {
    for (const auto& [name, draw] : kTools)
        if (name == toolName) return QIcon(new LineIcon(draw));
    return {};
}

QIcon ProgramIcon() { return QIcon(new LineIcon(Program)); }

void DrawInternet(QPainter& painter, const QRect& place) { Paint(painter, place, InternetMode, true); }
void DrawLocal(QPainter& painter, const QRect& place) { Paint(painter, place, LocalMode, true); }

}  // namespace qv
