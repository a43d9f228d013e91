#include "Vantry/app/AppDelegate.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <utility>

#include <QGuiApplication>
#include <QScopedValueRollback>
#include <QSessionManager>
#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include "Vantry/app/FieldSettling.h"
#include "Vantry/app/VantryStore.h"

namespace vantry {
namespace {

/// Signals reach the event loop through this pipe; a handler may do no more than write to it.
std::array<int, 2> signalPipe{-1, -1};

extern "C" void writeToSignalPipe(int) {
    const char wake = 1;
    [[maybe_unused]] const auto written = ::write(signalPipe[1], &wake, 1);
}

constexpr std::array endingSignals{SIGTERM, SIGINT, SIGHUP};

void handleEndingSignals(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    for (const int signal : endingSignals)
        ::sigaction(signal, &action, nullptr);
}

}  // namespace

AppDelegate::AppDelegate(Question question, QObject* parent)
    : QObject(parent)
    , ask(std::move(question)) {}

AppDelegate::~AppDelegate() {
    if (!watching)
        return;
    handleEndingSignals(SIG_DFL);
    for (int& end : signalPipe)
        ::close(std::exchange(end, -1));
}

void AppDelegate::setStore(VantryStore& guarded) {
    if (store == &guarded)
        return;
    store = &guarded;
    // What is typed after the answer was not part of it.
    connect(store, &VantryStore::changed, this, [this](VantryStore::Member member) {
        if (member == VantryStore::Member::library)
            decided = false;
    });
}

void AppDelegate::save() {
    settleField();
    store->flush();
}

bool AppDelegate::shouldTerminate() {
    if (asking || (busy && busy()))
        return false;
    if (store != nullptr) {
        save();
        if (!decided && store->saveFailed() && store->error()) {
            const QScopedValueRollback guard(asking, true);
            if (!ask || !ask(*store->error()))
                return false;
        }
    }
    decided = true;
    return true;
}

void AppDelegate::watchSystem() {
    connect(qApp, &QGuiApplication::commitDataRequest, this, &AppDelegate::decideSession,
            Qt::DirectConnection);
    if (::pipe(signalPipe.data()) != 0)
        return;
    for (const int end : signalPipe) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    auto* notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &AppDelegate::endBySignal);
    watching = true;
    handleEndingSignals(writeToSignalPipe);
}

void AppDelegate::endBySignal() {
    char wake = 0;
    while (::read(signalPipe[0], &wake, 1) == 1) {
    }
    if (store != nullptr)
        save();
    const bool lost = store != nullptr && store->saveFailed();
    decided = true;
    // Through all event loops, that of an open question too.
    QCoreApplication::exit(lost ? EXIT_FAILURE : EXIT_SUCCESS);
}

void AppDelegate::decideSession(QSessionManager& session) {
    if (!session.allowsInteraction()) {
        if (store != nullptr)
            save();
        return;
    }
    const bool end = shouldTerminate();
    session.release();
    if (!end)
        session.cancel();
}

}  // namespace vantry
