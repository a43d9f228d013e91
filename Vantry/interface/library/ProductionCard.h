#pragma once

#include "Vantry/interface/design/PressableSurface.h"

namespace vantry {

class CompletionLine;
class StatusPill;

/// A production as the home page shows it; pressing it leads to its desk.
class ProductionCard final : public PressableSurface {
    Q_OBJECT

public:
    struct Content {
        QString title;
        QString mark;  ///< what is special about it, or nothing
        QString director;
        QString acts;
        QString shots;
        QString complete;
        int done = 0;
        int total = 0;

        friend bool operator==(const Content&, const Content&) = default;
    };

    explicit ProductionCard(QWidget* parent = nullptr);

    void setContent(const Content& content);

protected:
    void paintContent(QPainter& painter) const override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();

    Content content;
    StatusPill* pill;
    CompletionLine* line;
};

}  // namespace vantry
