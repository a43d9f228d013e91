#pragma once

#include "Vantry/interface/design/PressableSurface.h"

namespace vantry {

/// A shot to go to: its act above its name, and whether it is the one on the page or cancelled.
class ShotChooserRow final : public PressableSurface {
    Q_OBJECT

public:
    struct Content {
        QString act;
        QString name;
        QString state;  ///< a word for a shot that is off
        bool current = false;

        friend bool operator==(const Content&, const Content&) = default;
    };

    explicit ShotChooserRow(QWidget* parent = nullptr);

    void setContent(const Content& content);
    [[nodiscard]] std::optional<bool> isChosen() const override { return content.current; }

protected:
    void paintContent(QPainter& painter) const override;

private:
    Content content;
};

}  // namespace vantry
