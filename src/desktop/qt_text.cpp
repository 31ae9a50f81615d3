#include "desktop/qt_text.h"

namespace qv {
namespace {

constexpr int kLongestStretch = 60;      // characters
constexpr qsizetype kLongestText = 2000;  // likewise
constexpr QChar kBreakHere(0x200B);       // a blank of no width

}  // namespace

QString WithoutAccessKey(std::string_view caption) {
    QString plain;
    const QString text = ToQt(caption);
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && ++i == text.size()) break;
        plain += text[i];
    }
    return plain;
}

QString Wrappable(std::string_view text) {
    QString whole = ToQt(text);
    if (whole.size() > kLongestText) whole = whole.left(kLongestText) + QChar(0x2026);
    QString wrapped;
    int stretch = 0;
    for (const QChar c : whole) {
        stretch = c.isSpace() ? 0 : stretch + 1;
        if (stretch > kLongestStretch && !c.isLowSurrogate()) {
            wrapped += kBreakHere;
            stretch = 1;
        }
        wrapped += c;
    }
    return wrapped;
}

}  // namespace qv
