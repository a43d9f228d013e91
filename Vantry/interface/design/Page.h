#pragma once

#include <QWidget>

namespace vantry {

/// A page of the window. It keeps no record and no text of its own: `refresh` brings all of it in line with
/// what is true now, visible texts included, and touches only what differs, so that caret, focus, composition
/// and scroll stay. Whoever shows a page ends it by `deleteLater`.
class Page : public QWidget {
    Q_OBJECT

public:
    explicit Page(QWidget* parent = nullptr);

    virtual void refresh() = 0;
    /// Gives the keyboard to what is written on this page: it has come here for that.
    virtual void beginWriting() { setFocus(Qt::OtherFocusReason); }

protected:
    /// With the keyboard on the page itself its body scrolls.
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace vantry
