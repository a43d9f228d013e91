#include "Vantry/interface/navigation/QuitQuestion.h"

#include <QPointer>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Sheet.h"

namespace vantry {

bool askToQuit(QWidget& window, const Text& reason) {
    // What it lies over may go while it waits, and takes it along.
    const QPointer<QuestionSheet> question = new QuestionSheet(Sheet::topmostOver(window));
    question->setTexts(QStringLiteral("Vantry"), QStringLiteral("返回 / Go back"),
                       QStringLiteral("退出 / Quit"));
    question->setMessage(toQString(reason));
    const bool quits = question->waitForAnswer();
    delete question;
    return quits;
}

}  // namespace vantry
