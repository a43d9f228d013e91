#pragma once

#include <QDialog>
#include <QPointer>

namespace vantry {

/// What all sheets share: a window-modal dialog in the middle of its window, which lies under a layer
/// meanwhile and which it never outgrows; show it by `open()`. It has the surface and the rounded corners of
/// a sheet, and nothing on it.
class SheetWindow : public QDialog {
    Q_OBJECT

public:
    explicit SheetWindow(QWidget* parent);
    ~SheetWindow() override;

    /// What the next sheet belongs over: the topmost of those on screen, else `window`.
    [[nodiscard]] static QWidget* topmostOver(QWidget& window);

protected:
    /// The size that it asks for; it gets less where its window is smaller.
    [[nodiscard]] virtual QSize wantedSize() = 0;
    /// Takes the size that it asks for, as far as there is room. Done by itself whenever it may differ.
    void fit();

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void appear();
    void disappear();
    void place();

    QPointer<QWidget> under;
    QPointer<QWidget> layer;
};

}  // namespace vantry
