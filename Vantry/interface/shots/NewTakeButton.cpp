#include "Vantry/interface/shots/NewTakeButton.h"

#include <memory>

#include <QGuiApplication>
#include <QShortcut>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/WorkspaceHeading.h"

namespace vantry {

void startTakeBy(Button& button, const std::function<void(AfterNewTake)>& start) {
    auto keyboard = std::make_shared<AfterNewTake>(AfterNewTake::stays);
    QObject::connect(&button, &Button::pressed, &button, [keyboard] {
        const bool isMouse = QGuiApplication::mouseButtons() != Qt::NoButton;
        *keyboard = isMouse ? AfterNewTake::writes : AfterNewTake::stays;
    });
    QObject::connect(&button, &Button::clicked, &button, [start, keyboard] { start(*keyboard); });
}

Button* makeNewTakeButton(WorkspaceHeading& heading, const std::function<void(AfterNewTake)>& start) {
    auto* button = new Button(Button::Kind::primary, Glyph::plus, &heading);
    heading.actions().addWidget(button);
    startTakeBy(*button, start);
    for (const QKeySequence keys : {Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(keys, button);
        QObject::connect(shortcut, &QShortcut::activated, button, [button, start] {
            if (button->isEnabled())
                start(AfterNewTake::writes);
        });
    }
    return button;
}

}  // namespace vantry
