#include "desktop/theme.h"

#include <QApplication>
#include <QDir>
#include <QProxyStyle>
#include <QSettings>
#include <QStandardPaths>
#include <QStyleFactory>
#include <QStyleOption>
#include <array>

namespace qv {
namespace {

bool DesktopWantsDark() {
    const QString theme = qEnvironmentVariable("GTK_THEME");
    if (!theme.isEmpty()) return theme.endsWith("dark", Qt::CaseInsensitive);
    const QString file = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/gtk-3.0/settings.ini";
    const QString wish = QSettings(file, QSettings::IniFormat).value("Settings/gtk-application-prefer-dark-theme").toString();
    return wish == "1" || wish.compare("true", Qt::CaseInsensitive) == 0;
}

QPalette DarkPalette() {
    const QColor window(0x2b, 0x2d, 0x30), base(0x1e, 0x1f, 0x22), text(0xe4, 0xe6, 0xe8), dim(0x84, 0x88, 0x8d);
    QPalette dark(QColor(0x3a, 0x3d, 0x41), window);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) dark.setColor(role, text);
    dark.setColor(QPalette::Base, base);
    dark.setColor(QPalette::AlternateBase, window);
    dark.setColor(QPalette::ToolTipBase, window);
    dark.setColor(QPalette::ToolTipText, text);
    dark.setColor(QPalette::Highlight, QColor(0x2f, 0x7a, 0xc2));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(0x6c, 0xb6, 0xf0));
    dark.setColor(QPalette::PlaceholderText, dim);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, dim);
    return dark;
}

// The outlines of boxes are made darker than the window, which on a dark one leaves nothing to be seen.
class DarkStyle : public QProxyStyle {
   public:
    DarkStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        if (button == nullptr || (element != PE_IndicatorCheckBox && element != PE_IndicatorRadioButton)) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        QStyleOptionButton box = *button;
        box.palette.setColor(QPalette::Window, QColor(0xa0, 0xa4, 0xa8));
        QProxyStyle::drawPrimitive(element, &box, painter, widget);
    }
};

}  // namespace

bool IsDark(const QPalette& palette) { return palette.color(QPalette::Base).lightness() < 128; }

QColor ToneColour(StatusTone tone, const QPalette& palette) {
    const bool dark = IsDark(palette);
    switch (tone) {
        case StatusTone::Good: return dark ? QColor(0x7a, 0xd8, 0x86) : QColor(0x1d, 0x76, 0x2e);
        case StatusTone::Redirected: return dark ? QColor(0x8c, 0xc8, 0xc8) : QColor(0x1a, 0x6e, 0x78);
        case StatusTone::Ignored: return dark ? QColor(0xa8, 0xac, 0xb1) : QColor(0x5f, 0x63, 0x68);
        case StatusTone::Questionable: return dark ? QColor(0xff, 0x8a, 0x7a) : QColor(0xb8, 0x1f, 0x17);
        case StatusTone::Working: return dark ? QColor(0x6c, 0xb6, 0xf0) : QColor(0x17, 0x5f, 0xa6);
        case StatusTone::Interrupted: return dark ? QColor(0xe9, 0xb8, 0x5c) : QColor(0x8a, 0x5a, 0x00);
        case StatusTone::None: break;
    }
    return palette.color(QPalette::Text);
}

QColor FillColour(int number) {
    static constexpr std::array<unsigned, 16> kColours = {0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080,
                                                          0x808000, 0xc0c0c0, 0x808080, 0x0000ff, 0x00ff00, 0x00ffff,
                                                          0xff0000, 0xff00ff, 0xffff00, 0xffffff};
    return QColor::fromRgb(kColours[static_cast<std::size_t>(number) % kColours.size()]);
}

void FollowDesktopColours() {
    if (IsDark(QApplication::palette()) || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORMTHEME") || !DesktopWantsDark()) return;
    QApplication::setStyle(new DarkStyle);  // the application owns it
    QApplication::setPalette(DarkPalette());
}

}  // namespace qv
