#pragma once

#include <functional>
#include <utility>

#include <QObject>
#include <QPointer>

#include "VantryCore/records/Text.h"

class QSessionManager;

namespace vantry {

class VantryStore;

/// The one guard of the process's end: closing the window, Quit, the end of the desktop session and the
/// signals that ask a process to end all pass through it.
class AppDelegate final : public QObject {
    Q_OBJECT

public:
    /// Asks the person, who is told why the last save failed, whether to quit all the same.
    using Question = std::function<bool(const Text& reason)>;

    /// Without a question nobody can accept a loss: a failed save then keeps the process alive.
    explicit AppDelegate(Question question = {}, QObject* parent = nullptr);
    ~AppDelegate() override;

    void askBy(Question question) { ask = std::move(question); }

    /// The store to guard; set when the window first appears and never taken back.
    void setStore(VantryStore& guarded);

    /// While `isBusy` answers yes, `shouldTerminate` answers no and asks nothing: something on screen, such
    /// as a chooser of files, waits for the person. Signals end the process all the same.
    void refuseWhile(std::function<bool()> isBusy) { busy = std::move(isBusy); }

    /// Saves, and answers whether the process may end: always, unless that save failed and the person chose
    /// to go back. Once it has answered yes it asks no second time, unless the library has changed since;
    /// asked again while its question is on screen it says no.
    [[nodiscard]] bool shouldTerminate();

    /// Whether its question is on screen at this moment.
    [[nodiscard]] bool isAsking() const noexcept { return asking; }

    /// Lets SIGTERM, SIGINT and SIGHUP save and end the process without a question, and puts the end of the
    /// desktop session before `shouldTerminate`. Needs the application object; call once.
    void watchSystem();

private:
    void save();
    void endBySignal();
    void decideSession(QSessionManager& session);

    QPointer<VantryStore> store;
    Question ask;
    std::function<bool()> busy;
    bool watching = false;
    bool asking = false;
    bool decided = false;
};

}  // namespace vantry
