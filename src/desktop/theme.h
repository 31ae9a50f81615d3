// Light and dark windows, and the colours that mean something.
#pragma once

#include <QColor>
#include <QPalette>

#include "session/link_rows.h"

namespace qv {

bool IsDark(const QPalette& palette);

// The colour that a status is told by, legible on this palette's list.
QColor ToneColour(StatusTone tone, const QPalette& palette);

// One of the sixteen colours that pictures are filled with (2 green, 10 bright green).
QColor FillColour(int number);

// Where Qt doesn't know the desktop's wish for dark windows, takes it from the places where desktops leave it.
void FollowDesktopColours();

}  // namespace qv
