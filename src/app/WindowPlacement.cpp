#include "app/WindowPlacement.h"

#include <algorithm>

namespace {

int64_t Overlap(const QRect& a_I, const QRect& b_I) {
    const QRect common = a_I.intersected(b_I);
    return common.isEmpty() ? 0 : int64_t{common.width()} * common.height();
}

// Moves [start, start + length) into [first, first + room) as little as possible; the start
// wins when it cannot fit.
int Clamp(int start_I, int length_I, int first_I, int room_I) {
    return std::max(first_I, std::min(start_I, first_I + room_I - length_I));
}

} // namespace

QPoint KeptOnScreen(const QRect& client_I, const QMargins& frame_I,
                    const std::vector<QRect>& workAreas_I) {
    if (workAreas_I.empty()) {
        return client_I.topLeft();
    }
    const QRect framed = client_I.marginsAdded(frame_I);
    const QRect* best = &workAreas_I.front();
    for (const QRect& area : workAreas_I) {
        if (Overlap(framed, area) > Overlap(framed, *best)) {
            best = &area;
        }
    }
    const int left = Clamp(framed.left(), framed.width(), best->left(), best->width());
    const int top = Clamp(framed.top(), framed.height(), best->top(), best->height());
    return QPoint(left + frame_I.left(), top + frame_I.top());
}

QPoint DefaultPosition(const QRect& workArea_I, const QMargins& frame_I) {
    return workArea_I.topLeft() + QPoint(frame_I.left(), frame_I.top());
}
