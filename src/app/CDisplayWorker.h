#pragma once
// The one thread that talks to the displays. Every call into a display session (discovery, reads,
// writes, resets) is posted here as a job and runs on this thread, one at a time, in the order
// posted; the GUI thread never waits on the wire. A job's "done" part runs afterwards on the
// GUI thread, through Qt's queued calls, to bring the controls up to date.
//
// Rules for callers (the dialogs, and later the tray and hotplug code):
// - Post(job, done) from the GUI thread. The job may touch sessions, never a widget; done may
//   touch widgets.
// - A job posted with a coalescing key replaces a job of the same key that waits at the end of
//   the queue and has not started: a slider drag keeps only its latest value waiting while one
//   write is on the wire.
// - Code on the GUI thread that reads a session directly first calls WaitIdle(), which keeps
//   events turning until no job is left, so that no two threads ever touch one session.

#include <QObject>
#include <QTimer>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

class CDisplayWorker : public QObject {
    Q_OBJECT

public:
    using Job = std::function<void()>;
    static constexpr int kNoCoalescing = -1;
    // After this long with a job unfinished, the program shows the busy cursor.
    static constexpr int kBusyCursorDelayMs = 250;

    explicit CDisplayWorker(QObject* parent_I = nullptr);
    // Drops the jobs that have not started and waits for the running one.
    ~CDisplayWorker() override;
    CDisplayWorker(const CDisplayWorker&) = delete;
    CDisplayWorker& operator=(const CDisplayWorker&) = delete;

    void Post(Job job_I, Job done_I = {}, int coalescingKey_I = kNoCoalescing);
    // No job waits or runs, and every done part has run.
    bool Idle() const { return mPending == 0; }
    // Runs events until Idle().
    void WaitIdle();

signals:
    // Emitted on the GUI thread when the last pending job's done part has run.
    void idle();
    // The busy cursor came (true) or went (false).
    void busyChanged(bool busy_I);

private:
    struct SItem {
        Job job;
        Job done;
        int key;
    };

    void Loop();
    void Finished(const Job& done_I);
    void SetBusy(bool busy_I);

    std::mutex mMutex;
    std::condition_variable mWake;
    std::deque<SItem> mQueue;
    bool mStop = false;
    // Posted jobs whose done part has not run yet; touched on the GUI thread only.
    int mPending = 0;
    bool mBusy = false;
    QTimer mBusyDelay;
    std::thread mThread;
};
