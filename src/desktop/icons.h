// The program's pictures, drawn as lines so that they fit every size and both light and dark windows.
#pragma once

#include <QIcon>
#include <QPainter>
#include <string_view>

namespace qv {

// The icon of a tool button, by the button's name; an empty icon for a name that has none.
QIcon ToolIcon(std::string_view toolName);
QIcon ProgramIcon();

// What a site on the Internet and one in a local folder look like.
void DrawInternet(QPainter& painter, const QRect& place);
void DrawLocal(QPainter& painter, const QRect& place);

}  // namespace qv
