#pragma once
// Where the main dialog goes. The stored point is the top-left of the window's client area: that
// is what a window can be placed by before the window manager has framed it, so storing and
// restoring it leaves the window where the user left it.

#include <QMargins>
#include <QPoint>
#include <QRect>

#include <vector>

// The client point that keeps the framed window inside one of the screens' work areas: the
// area it overlaps most (the first when it overlaps none) and within it as little moved as
// possible. A window larger than the area keeps its title bar on the area's top-left corner.
QPoint KeptOnScreen(const QRect& client_I, const QMargins& frame_I,
                    const std::vector<QRect>& workAreas_I);

// The client point of a first start: the frame in the work area's top-left corner.
QPoint DefaultPosition(const QRect& workArea_I, const QMargins& frame_I);
