#pragma once
// Follows displays that are plugged in or out: the platform reports each change, on any thread;
// once the changes have been quiet for a moment (a plug gives a burst of them) the settled
// action runs on this object's thread, where the dialog discovers again. The action may answer
// "not now" (false), and is then asked again at the next poll.

#include "discovery/IDisplayPlatform.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class CHotplugWatcher : public QObject {
    Q_OBJECT

public:
    static constexpr int64_t kSettleMs = 750;
    static constexpr int kPollMs = 100;

    CHotplugWatcher(std::shared_ptr<IDisplayPlatform> platform_I, std::function<bool()> settled_I,
                    QObject* parent_I);
    ~CHotplugWatcher() override;

    // false when the platform cannot report changes; the program then works as without this.
    bool Watching() const { return mWatching; }
    // Runs the settled action when a change is pending and the program's clock has moved on
    // kSettleMs since the last one; true when it ran and did its work. The timer calls it, and so
    // may a test.
    bool Poll();

private:
    void Changed();

    std::shared_ptr<IDisplayPlatform> mPlatform;
    std::function<bool()> mSettled;
    std::atomic<bool> mPending{false};
    std::atomic<int64_t> mLastChangeNs{0};
    QTimer mTimer;
    bool mWatching = false;
};

struct SListedDisplay {
    std::wstring id; // the monitor's identity, which stays the same across discoveries
    QString name;
};

// One line per display that left or arrived between the two lists; empty when none did.
QString HotplugNotice(const std::vector<SListedDisplay>& before_I,
                      const std::vector<SListedDisplay>& after_I);
