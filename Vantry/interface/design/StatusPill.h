#pragma once

#include <QLabel>

namespace vantry {

/// What a state means for the one who reads it.
enum class StatusKind { neutral, good, warning };

/// A state in a word; a good one has a check in front. For assistive tools it is one text.
class StatusPill final : public QLabel {
    Q_OBJECT

public:
    explicit StatusPill(StatusKind kind, QWidget* parent = nullptr);

    void setPlain(const QString& title);
    void setKind(StatusKind kind);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// What the sign takes at the left, the gap included.
    [[nodiscard]] int signWidth() const;

    StatusKind kind;
};

}  // namespace vantry
