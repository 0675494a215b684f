#include "app/CHotplugWatcher.h"

#include "foundation/TimeSeam.h"

#include <algorithm>

namespace {

constexpr int64_t kNsPerMs = 1000000;

bool Holds(const std::vector<SListedDisplay>& list_I, const std::wstring& id_I) {
    return std::any_of(list_I.begin(), list_I.end(),
                       [&](const SListedDisplay& d) { return d.id == id_I; });
}

} // namespace

CHotplugWatcher::CHotplugWatcher(std::shared_ptr<IDisplayPlatform> platform_I,
                                 std::function<bool()> settled_I, QObject* parent_I)
    : QObject(parent_I), mPlatform(std::move(platform_I)), mSettled(std::move(settled_I)) {
    setObjectName(QStringLiteral("hotplugWatcher"));
    mTimer.setInterval(kPollMs);
    connect(&mTimer, &QTimer::timeout, this, [this] { Poll(); });
    mWatching = mPlatform && mPlatform->WatchHotplug([this] { Changed(); });
}

CHotplugWatcher::~CHotplugWatcher() {
    if (mWatching) {
        mPlatform->WatchHotplug({});
    }
}

void CHotplugWatcher::Changed() {
    mLastChangeNs = MonotonicNs();
    mPending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!mTimer.isActive()) {
                mTimer.start();
            }
        },
        Qt::QueuedConnection);
}

bool CHotplugWatcher::Poll() {
    if (!mPending) {
        mTimer.stop();
        return false;
    }
    if (MonotonicNs() - mLastChangeNs < kSettleMs * kNsPerMs) {
        return false;
    }
    mPending = false;
    if (!mSettled()) {
        mPending = true;
        return false;
    }
    if (!mPending) {
        mTimer.stop();
    }
    return true;
}

QString HotplugNotice(const std::vector<SListedDisplay>& before_I,
                      const std::vector<SListedDisplay>& after_I) {
    QStringList lines;
    for (const SListedDisplay& display : before_I) {
        if (!Holds(after_I, display.id)) {
            lines << QObject::tr("%1 was unplugged.").arg(display.name);
        }
    }
    for (const SListedDisplay& display : after_I) {
        if (!Holds(before_I, display.id)) {
            lines << QObject::tr("%1 was plugged in.").arg(display.name);
        }
    }
    return lines.join(QLatin1Char('\n'));
}
