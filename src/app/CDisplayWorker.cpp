#include "app/CDisplayWorker.h"

#include "app/CThreadFrame.h"

#include <QCursor>
#include <QEventLoop>
#include <QGuiApplication>

CDisplayWorker::CDisplayWorker(QObject* parent_I) : QObject(parent_I) {
    mBusyDelay.setSingleShot(true);
    mBusyDelay.setInterval(kBusyCursorDelayMs);
    connect(&mBusyDelay, &QTimer::timeout, this, [this] { SetBusy(true); });
    mThread = std::thread([this] { RunInThreadFrame(L"DisplayWorker", [this] { Loop(); }); });
}

CDisplayWorker::~CDisplayWorker() {
    {
        std::lock_guard<std::mutex> lock(mMutex);
        mStop = true;
        mQueue.clear();
    }
    mWake.notify_one();
    mThread.join();
    SetBusy(false);
}

void CDisplayWorker::Post(Job job_I, Job done_I, int coalescingKey_I) {
    {
        std::lock_guard<std::mutex> lock(mMutex);
        if (coalescingKey_I != kNoCoalescing && !mQueue.empty() &&
            mQueue.back().key == coalescingKey_I) {
            mQueue.back() = SItem{std::move(job_I), std::move(done_I), coalescingKey_I};
            return;
        }
        mQueue.push_back(SItem{std::move(job_I), std::move(done_I), coalescingKey_I});
    }
    if (mPending++ == 0) {
        mBusyDelay.start();
    }
    mWake.notify_one();
}

void CDisplayWorker::Loop() {
    for (;;) {
        SItem item;
        {
            std::unique_lock<std::mutex> lock(mMutex);
            mWake.wait(lock, [this] { return mStop || !mQueue.empty(); });
            if (mStop) {
                return;
            }
            item = std::move(mQueue.front());
            mQueue.pop_front();
        }
        item.job();
        QMetaObject::invokeMethod(
            this, [this, done = std::move(item.done)] { Finished(done); }, Qt::QueuedConnection);
    }
}

// The count drops before the done part runs, so that a done part may post or wait itself.
void CDisplayWorker::Finished(const Job& done_I) {
    --mPending;
    if (done_I) {
        done_I();
    }
    if (mPending == 0) {
        mBusyDelay.stop();
        SetBusy(false);
        emit idle();
    }
}

void CDisplayWorker::WaitIdle() {
    while (!Idle()) {
        QEventLoop loop;
        connect(this, &CDisplayWorker::idle, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

void CDisplayWorker::SetBusy(bool busy_I) {
    if (busy_I == mBusy) {
        return;
    }
    mBusy = busy_I;
    if (busy_I) {
        QGuiApplication::setOverrideCursor(QCursor(Qt::BusyCursor));
    } else {
        QGuiApplication::restoreOverrideCursor();
    }
    emit busyChanged(busy_I);
}
