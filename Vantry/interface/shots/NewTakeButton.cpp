#include "Vantry/interface/shots/NewTakeButton.h"

#include <QShortcut>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/WorkspaceHeading.h"

namespace vantry {

Button* makeNewTakeButton(WorkspaceHeading& heading, const std::function<void()>& start) {
    auto* button = new Button(Button::Kind::primary, Glyph::plus, &heading);
    heading.actions().addWidget(button);
    QObject::connect(button, &Button::clicked, button, [start] { start(); });
    for (const QKeySequence keys : {Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(keys, button);
        QObject::connect(shortcut, &QShortcut::activated, button, [button, start] {
            if (button->isEnabled())
                start();
        });
    }
    return button;
}

}  // namespace vantry
