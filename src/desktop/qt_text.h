// Texts on their way to the windows and back.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "text/characters.h"

namespace qv {

// Text that is no UTF-8 is shown as Windows-1252.
inline QString ToQt(std::string_view text) { return QString::fromStdString(AsUtf8(text)); }
inline std::string FromQt(const QString& text) { return text.toStdString(); }

// A caption for a place that knows no access keys: without the "&" of its key, "&&" as "&".
QString WithoutAccessKey(std::string_view caption);

// A text that a window can wrap and bear: long stretches without a blank can be broken, and what is far too long is cut.
QString Wrappable(std::string_view text);

}  // namespace qv
