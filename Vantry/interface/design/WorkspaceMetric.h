#pragma once

#include <initializer_list>
#include <vector>

#include <QWidget>

#include "Vantry/interface/design/Glyph.h"

namespace vantry {

class Label;

/// A tile with one number of a page and what it counts.
class WorkspaceMetric final : public QWidget {
    Q_OBJECT

public:
    explicit WorkspaceMetric(Glyph glyph, QWidget* parent = nullptr);

    void setTexts(const QString& value, const QString& label);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Glyph glyph;
    Label* value;
    Label* label;
};

/// The tiles of a page, in one or two columns.
class WorkspaceMetrics final : public QWidget {
    Q_OBJECT

public:
    explicit WorkspaceMetrics(std::initializer_list<Glyph> glyphs, QWidget* parent = nullptr);

    /// The tile that was given that place, from 0.
    [[nodiscard]] WorkspaceMetric& tile(std::size_t index) { return *tiles.at(index); }

private:
    std::vector<WorkspaceMetric*> tiles;
};

}  // namespace vantry
