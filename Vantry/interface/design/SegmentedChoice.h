#pragma once

#include <QList>
#include <QStringList>
#include <QWidget>

#include "Vantry/interface/design/Segment.h"

namespace vantry {

/// A strip of choices of which one is set. For assistive tools it is a named group of radio buttons; for the
/// keyboard it is one control, within which the arrow keys choose, and Home and End.
class SegmentedChoice : public QWidget {
    Q_OBJECT

public:
    /// A strip of controls, the large one of a page's main decision, or the tabs of a page.
    enum class Size { regular, large, tabs };

    SegmentedChoice(const QList<Segment::Look>& looks, Size size, QWidget* parent = nullptr);

    /// Names the group.
    void setName(const QString& name);
    void setTitles(const QStringList& titles);
    /// Shows that choice as the one that is set; tells nobody.
    void setChosen(int index);
    /// The choice that is set, or -1.
    [[nodiscard]] int chosenIndex() const;
    /// Gives the keyboard to the choice that is set; none, no keyboard.
    void focusChosen(Qt::FocusReason reason);

signals:
    /// The person chose; also sent for the choice that is set already.
    void chosen(int index);

protected:
    /// Home and End choose the first and the last.
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Only the choice that is set is reached by Tab.
    void followChoice();
    void bringKeyboard();

    QList<Segment*> segments;
};

}  // namespace vantry
