#pragma once

#include <QWidget>

#include "VantryCore/records/VantryTake.h"

namespace vantry {

class Label;
class SegmentedChoice;
class StarRating;

/// The decision on a take: its verdict and its stars, beside each other or, where there is no room, below. It
/// says what was pressed and changes nothing.
class TakeResultBar final : public QWidget {
    Q_OBJECT

public:
    explicit TakeResultBar(QWidget* parent = nullptr);

    void refresh(const VantryTake& take, bool english);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return QSize(0, 0); }

signals:
    void resultChosen(vantry::TakeResult result);
    void starPressed(int number);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    [[nodiscard]] bool fitsBeside(int width) const;
    void arrange();

    Label* resultTitle;
    SegmentedChoice* result;
    Label* ratingTitle;
    StarRating* stars;
};

}  // namespace vantry
