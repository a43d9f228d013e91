#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QRect>

class QTextEdit;

namespace vantry {

/// The caret of a text view in the colour of its text; the view's own would be the inverse of what lies
/// beneath. It blinks at the pace of the desktop, rests lit while things change, and is hidden when an input
/// method wants it so.
class ParagraphCaret final : public QObject {
public:
    explicit ParagraphCaret(QTextEdit& view);

    /// Whether it is to be seen at this moment.
    [[nodiscard]] bool isLit() const noexcept { return lit && !concealed; }
    /// Last step of painting the view.
    void paint();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    /// Lit from now on, and at the place where it belongs now.
    void rest();
    void setLit(bool now);
    [[nodiscard]] QRect place() const;

    QTextEdit& view;
    QBasicTimer pace;
    QRect shown;  ///< where it was painted last
    bool focused = false;
    bool lit = false;
    bool concealed = false;
};

}  // namespace vantry
