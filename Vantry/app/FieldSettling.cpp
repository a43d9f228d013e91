#include "Vantry/app/FieldSettling.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QMetaObject>
#include <QPointer>
#include <QWidget>

namespace vantry {
namespace {

/// Sees what input methods send to the fields.
class CompositionWatch final : public QObject {
public:
    using QObject::QObject;

    void finish() {
        QInputMethod& method = *QGuiApplication::inputMethod();
        method.commit();
        const QPointer<QObject> target = field;
        if (target == nullptr || target != QGuiApplication::focusObject())
            return;
        const QString unfinished = held;
        const int before = handedOver;
        method.reset();
        if (handedOver != before || target == nullptr)
            return;
        QInputMethodEvent written;
        written.setCommitString(unfinished);
        QCoreApplication::sendEvent(target, &written);
    }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::InputMethod) {
            const auto& sent = *static_cast<QInputMethodEvent*>(event);
            held = sent.preeditString();
            field = held.isEmpty() ? nullptr : receiver;
            if (!sent.commitString().isEmpty())
                ++handedOver;
        } else if (event->type() == QEvent::FocusOut && receiver == field) {
            field = nullptr;
        } else if (event->type() == QEvent::MouseButtonPress &&
                   qobject_cast<QAbstractButton*>(receiver) != nullptr) {
            // A press does not take the keyboard away, but what it does is about all that stands in the
            // field.
            settleField();
        }
        return false;
    }

private:
    QPointer<QObject> field;  ///< where something is being composed
    QString held;             ///< what that is
    int handedOver = 0;       ///< how often a text was committed
};

QPointer<CompositionWatch>& watch() {
    static QPointer<CompositionWatch> installed;
    return installed;
}

}  // namespace

void watchCompositions(QObject& application) {
    watch() = new CompositionWatch(&application);
    application.installEventFilter(watch());
}

void settleField() {
    if (watch() != nullptr)
        watch()->finish();
    else if (QInputMethod* method = QGuiApplication::inputMethod())
        method->commit();
    QWidget* const focused = QApplication::focusWidget();
    if (focused != nullptr && focused->metaObject()->indexOfMethod("settle()") >= 0)
        QMetaObject::invokeMethod(focused, "settle", Qt::DirectConnection);
}

}  // namespace vantry
