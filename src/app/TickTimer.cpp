#include "app/TickTimer.h"

#include <utility>

CQtTickTimer::CQtTickTimer() {
    QObject::connect(&mTimer, &QTimer::timeout, [this] {
        if (mTick) {
            mTick();
        }
    });
}

void CQtTickTimer::SetCallback(std::function<void()> tick_I) {
    mTick = std::move(tick_I);
}

void CQtTickTimer::Start(int intervalMs_I) {
    mTimer.start(intervalMs_I);
}

void CQtTickTimer::Stop() {
    mTimer.stop();
}

bool CQtTickTimer::IsActive() const {
    return mTimer.isActive();
}
