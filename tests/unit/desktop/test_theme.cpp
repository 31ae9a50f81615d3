#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QStyleOption>
#include <QTemporaryDir>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cmath>

#include "desktop/theme.h"

namespace qv {
namespace {

constexpr std::array<StatusTone, 6> kTones = {StatusTone::Good,         StatusTone::Redirected, StatusTone::Ignored,
                                              StatusTone::Questionable, StatusTone::Working,    StatusTone::Interrupted};

double Luminance(const QColor& colour) {
    const auto linear = [](double part) { return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

// How far two colours are apart, as Web pages are judged by: 4.5 is what a text needs.
double Contrast(const QColor& a, const QColor& b) {
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

struct Theme : testing::Test {
    QPalette before = QApplication::palette();
    QTemporaryDir config;
    Theme() {
        qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
        qunsetenv("QT_QPA_PLATFORMTHEME");
        qunsetenv("GTK_THEME");
    }
    ~Theme() override {
        QApplication::setPalette(before);
        qunsetenv("XDG_CONFIG_HOME");
        qunsetenv("GTK_THEME");
    }
    static void ExpectLegible() {
        const QPalette now = QApplication::palette();
        for (const StatusTone tone : kTones)
            EXPECT_GE(Contrast(ToneColour(tone, now), now.color(QPalette::Base)), 4.5) << static_cast<int>(tone);
        EXPECT_EQ(ToneColour(StatusTone::None, now), now.color(QPalette::Text));
        for (const auto& [text, ground] : {std::pair{QPalette::Text, QPalette::Base}, {QPalette::WindowText, QPalette::Window},
                                           {QPalette::ButtonText, QPalette::Button}})
            EXPECT_GE(Contrast(now.color(text), now.color(ground)), 4.5) << text;
    }
    void Settings(const char* text) {
        QDir(config.path()).mkdir("gtk-3.0");
        QFile file(config.path() + "/gtk-3.0/settings.ini");
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
};

TEST_F(Theme, IsLightWhereNothingElseIsWished) {
    FollowDesktopColours();
    EXPECT_FALSE(IsDark(QApplication::palette()));
    ExpectLegible();
}

TEST_F(Theme, IsDarkWhereTheDesktopsThemeIs) {
    qputenv("GTK_THEME", "Adwaita-Dark");
    FollowDesktopColours();
    EXPECT_TRUE(IsDark(QApplication::palette()));
    ExpectLegible();
}

// How far the outline of an empty box is from what is around it.
double BoxContrast() {
    QWidget ground;
    QStyleOptionButton box;
    box.rect = QRect(4, 4, 14, 14);
    box.state = QStyle::State_Enabled | QStyle::State_Off;
    box.palette = QApplication::palette();
    QImage image(22, 22, QImage::Format_RGB32);
    const QColor around = box.palette.color(QPalette::Base);
    image.fill(around);
    QPainter painter(&image);
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, &ground);
    double most = 1;
    for (int x = 0; x < image.width(); ++x) most = std::max(most, Contrast(image.pixelColor(x, 11), around));
    return most;
}

TEST_F(Theme, TheOutlineOfABoxIsSeenOnDarkWindows) {
    qputenv("GTK_THEME", "Adwaita-dark");
    FollowDesktopColours();
    EXPECT_GE(BoxContrast(), 2.5);
}

TEST_F(Theme, IsDarkWhereTheDesktopsSettingsSaySo) {
    Settings("[Settings]\ngtk-application-prefer-dark-theme=true\n");
    FollowDesktopColours();
    EXPECT_TRUE(IsDark(QApplication::palette()));
}

TEST_F(Theme, AThemeThatIsNamedComesBeforeTheSettings) {
    Settings("[Settings]\ngtk-application-prefer-dark-theme=1\n");
    qputenv("GTK_THEME", "Adwaita");
    FollowDesktopColours();
    EXPECT_FALSE(IsDark(QApplication::palette()));
}

TEST_F(Theme, IsLeftToAPluginThatKnowsTheDesktop) {
    qputenv("QT_QPA_PLATFORMTHEME", "gtk3");
    qputenv("GTK_THEME", "Adwaita-dark");
    FollowDesktopColours();
    EXPECT_FALSE(IsDark(QApplication::palette()));
    qunsetenv("QT_QPA_PLATFORMTHEME");
}

}  // namespace
}  // namespace qv
