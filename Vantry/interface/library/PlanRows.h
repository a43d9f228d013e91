#pragma once

#include "Vantry/interface/design/PressableSurface.h"

namespace vantry {

class CompletionLine;

/// A shot that is still to come: when, what, and where it belongs.
class UpcomingRow final : public PressableSurface {
    Q_OBJECT

public:
    struct Content {
        QString time;
        QString name;
        QString place;

        friend bool operator==(const Content&, const Content&) = default;
    };

    explicit UpcomingRow(QWidget* parent = nullptr);

    void setContent(const Content& content);

protected:
    void paintContent(QPainter& painter) const override;

private:
    Content content;
};

/// An act of a production, with how much of it is shot.
class ActRow final : public PressableSurface {
    Q_OBJECT

public:
    struct Content {
        QString title;
        QString counts;
        int done = 0;
        int total = 0;

        friend bool operator==(const Content&, const Content&) = default;
    };

    explicit ActRow(QWidget* parent = nullptr);

    void setContent(const Content& content);

protected:
    void paintContent(QPainter& painter) const override;
    void resizeEvent(QResizeEvent* event) override;

private:
    Content content;
    CompletionLine* line;
};

}  // namespace vantry
