#include "Vantry/interface/pages/RecordRemoval.h"

#include <utility>

#include <QWidget>

#include "Vantry/app/FieldSettling.h"
#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Sheet.h"
#include "Vantry/interface/pages/Contained.h"

namespace vantry {

RecordRemoval::RecordRemoval(PageContext given, QWidget& page, const Route& parent,
                             std::function<void()> removal)
    : QObject(&page)
    , context(std::move(given))
    , parentRoute(parent)
    , remove(std::move(removal))
    , opener(new Button(Button::Kind::destructive, Glyph::none, &page))
    , question(new QuestionSheet(&page)) {
    opener->setPressedOnce();
    connect(opener, &Button::clicked, this, [this] {
        settleField();
        question->ask();
    });
    connect(question, &QuestionSheet::accepted, this, &RecordRemoval::removeRecord);
}

void RecordRemoval::setTexts(const QString& button, const QString& asked) {
    const bool english = context.store.english();
    opener->setPlain(button);
    question->setTexts(asked, english ? QStringLiteral("Cancel") : QStringLiteral("取消"),
                       english ? QStringLiteral("Delete") : QStringLiteral("删除"));
}

void RecordRemoval::withdraw() {
    if (question->isVisible())
        question->reject();
}

void RecordRemoval::removeRecord() {
    contain(context.store, [this] {
        context.store.markCheckpoint();
        remove();
        context.go(parentRoute);
    });
    context.refreshSoon();
}

}  // namespace vantry
