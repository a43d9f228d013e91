#include "Vantry/app/Clock.h"

#include <QTimer>

namespace vantry {
namespace {

using SteadyTime = std::chrono::steady_clock::time_point;

class TimerCall final : public DelayedCall {
public:
    TimerCall(std::chrono::milliseconds delay, std::function<void()> function)
        : timer(new QTimer)
        , due(std::chrono::steady_clock::now() + delay)
        , call(std::move(function)) {
        // A coarse timer may fire early by a twentieth of its time.
        timer->setTimerType(Qt::PreciseTimer);
        timer->setSingleShot(true);
        QObject::connect(timer, &QTimer::timeout, timer, [this] { fire(); });
        timer->start(delay);
    }
    TimerCall(const TimerCall&) = delete;
    TimerCall& operator=(const TimerCall&) = delete;
    ~TimerCall() override {
        timer->stop();
        timer->disconnect();
        timer->deleteLater();  // this may run inside the timer's own signal
    }

private:
    void fire() {
        const auto left = due - std::chrono::steady_clock::now();
        if (left > SteadyTime::duration::zero()) {
            timer->start(std::chrono::ceil<std::chrono::milliseconds>(left));
            return;
        }
        const auto function = std::move(call);
        function();  // may destroy this object
    }

    QTimer* timer;
    SteadyTime due;
    std::function<void()> call;
};

class SystemClock final : public Clock {
public:
    Moment now() override { return Moment::now(); }
    double uptime() override {
        return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
    }
    std::unique_ptr<DelayedCall> callAfter(std::chrono::milliseconds delay,
                                           std::function<void()> call) override {
        return std::make_unique<TimerCall>(delay, std::move(call));
    }
};

}  // namespace

Clock& Clock::system() {
    static SystemClock clock;
    return clock;
}

}  // namespace vantry
