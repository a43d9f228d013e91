#pragma once

#include <QWidget>

namespace vantry {

class Label;

/// Tells, over the whole width, that the library could not be read and nothing is written.
class Banner final : public QWidget {
    Q_OBJECT

public:
    explicit Banner(QWidget* parent = nullptr);

    void refresh(bool loadFailed, bool english);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Label* text;
};

}  // namespace vantry
