#include <gtest/gtest.h>

#include "desktop/prompts.h"
#include "desktop/qt_text.h"

namespace qv {
namespace {

TEST(DesktopText, BytesThatAreNoUtf8AreShownAsWindows1252) {
    EXPECT_EQ(ToQt("w\xc3\xa9" "b"), QString::fromUtf16(u"w\u00e9b"));
    EXPECT_EQ(ToQt("w\xe9" "b \x80"), QString::fromUtf16(u"w\u00e9b \u20ac"));
    EXPECT_EQ(FromQt(QString::fromUtf16(u"\u20ac")), "\xe2\x82\xac");
}

TEST(DesktopText, ACaptionWithoutItsAccessKey) {
    EXPECT_EQ(WithoutAccessKey("Check &Web Site"), "Check Web Site");
    EXPECT_EQ(WithoutAccessKey("URL && Path"), "URL & Path");
    EXPECT_EQ(WithoutAccessKey("end&"), "end");
}

TEST(DesktopText, ALongWordCanBeBrokenAndAFarTooLongTextIsCut) {
    EXPECT_EQ(Wrappable("a short text"), "a short text");
    const QString broken = Wrappable("File not found: " + std::string(130, 'x'));
    EXPECT_EQ(broken.count(QChar(0x200B)), 2);
    EXPECT_EQ(QString(broken).remove(QChar(0x200B)), "File not found: " + QString(130, 'x'));
    EXPECT_LT(Wrappable(std::string(65536, 'y')).size(), 2100);
}

TEST(DesktopFilters, AreWrittenAsTheToolkitReadsThem) {
    EXPECT_EQ(FilterList("HTML Files (*.htm;*.html)|*.htm;*.html"), QStringList{"HTML Files (*.htm *.html)"});
    EXPECT_EQ(FilterList("Lists|*.qvl|All Files (*.*)|*.*"), (QStringList{"Lists (*.qvl)", "All Files (*)"}));
    EXPECT_EQ(FilterList("Program Files (*.exe)|*.exe"), QStringList{"Program Files (*)"});
    EXPECT_EQ(FilterList(""), QStringList());
}

}  // namespace
}  // namespace qv
