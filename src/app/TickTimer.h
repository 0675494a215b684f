#pragma once
// A repeating tick with a callback. The dialogs take one from outside, so that a test can fire
// the ticks itself instead of waiting for them.

#include <QTimer>

#include <functional>

class ITickTimer {
public:
    virtual ~ITickTimer() = default;
    virtual void SetCallback(std::function<void()> tick_I) = 0;
    virtual void Start(int intervalMs_I) = 0;
    virtual void Stop() = 0;
    virtual bool IsActive() const = 0;
};

class CQtTickTimer final : public ITickTimer {
public:
    CQtTickTimer();
    void SetCallback(std::function<void()> tick_I) override;
    void Start(int intervalMs_I) override;
    void Stop() override;
    bool IsActive() const override;

private:
    QTimer mTimer;
    std::function<void()> mTick;
};
