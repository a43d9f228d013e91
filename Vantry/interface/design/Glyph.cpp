#include "Vantry/interface/design/Glyph.h"

#include <cmath>
#include <initializer_list>
#include <numbers>

#include <QPainter>
#include <QPainterPath>

namespace vantry {
namespace {

/// All signs are drawn on a grid of this size.
constexpr qreal grid = 24;

struct Sketch {
    QPainterPath path;
    bool dashed = false;

    Sketch& line(std::initializer_list<QPointF> points, bool closed = false) {
        path.moveTo(*points.begin());
        for (const QPointF& point : points)
            path.lineTo(point);
        if (closed)
            path.closeSubpath();
        return *this;
    }
    Sketch& circle(qreal x, qreal y, qreal radius) {
        path.addEllipse(QPointF(x, y), radius, radius);
        return *this;
    }
    Sketch& box(qreal x, qreal y, qreal width, qreal height, qreal corner = 2) {
        path.addRoundedRect(x, y, width, height, corner, corner);
        return *this;
    }
};

QPainterPath star() {
    constexpr int points = 10;
    constexpr qreal outer = 10;
    constexpr qreal inner = 4.4;
    QPainterPath path;
    for (int index = 0; index < points; ++index) {
        const qreal angle = std::numbers::pi * (index * 2.0 / points - 0.5);
        const qreal radius = index % 2 == 0 ? outer : inner;
        const QPointF point(12 + radius * std::cos(angle), 12.8 + radius * std::sin(angle));
        if (index == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    path.closeSubpath();
    return path;
}

Sketch sketch(Glyph glyph) {
    Sketch s;
    switch (glyph) {
    case Glyph::none:
        break;
    case Glyph::library:
        s.line({{4, 4}, {4, 20}}).line({{8, 4}, {8, 20}}).line({{12, 6}, {12, 20}}).line({{16, 6}, {20, 20}});
        break;
    case Glyph::folder:
        s.line({{3, 19}, {3, 5}, {9, 5}, {11, 8}, {21, 8}, {21, 19}}, true);
        break;
    case Glyph::film:
        s.box(3, 4, 18, 16).line({{8, 4}, {8, 20}}).line({{16, 4}, {16, 20}}).line({{3, 12}, {21, 12}});
        break;
    case Glyph::camera:
        s.line({{3, 7}, {7, 7}, {9, 4}, {15, 4}, {17, 7}, {21, 7}, {21, 19}, {3, 19}}, true)
            .circle(12, 13, 3.2);
        break;
    case Glyph::waveform:
        s.line({{3, 10}, {3, 14}}).line({{7, 6}, {7, 18}}).line({{11, 3}, {11, 21}});
        s.line({{15, 8}, {15, 16}}).line({{19, 5}, {19, 19}});
        break;
    case Glyph::document:
        s.line({{5, 3}, {14, 3}, {19, 8}, {19, 21}, {5, 21}}, true).line({{9, 13}, {15, 13}});
        s.line({{9, 17}, {15, 17}});
        break;
    case Glyph::plus:
        s.line({{5, 12}, {19, 12}}).line({{12, 5}, {12, 19}});
        break;
    case Glyph::check:
        s.line({{4, 12.5}, {9.5, 18}, {20, 6.5}});
        break;
    case Glyph::checkCircle:
        s.circle(12, 12, 9.5).line({{8, 12.4}, {11, 15.2}, {16, 9.4}});
        break;
    case Glyph::dashedCircle:
        s.circle(12, 12, 9.5);
        s.dashed = true;
        break;
    case Glyph::warning:
        s.line({{12, 3}, {22, 20}, {2, 20}}, true).line({{12, 9}, {12, 13.5}}).line({{12, 16.8}, {12, 17}});
        break;
    case Glyph::cross:
        s.line({{6, 6}, {18, 18}}).line({{18, 6}, {6, 18}});
        break;
    case Glyph::star:
        s.path = star();
        break;
    case Glyph::chevronLeft:
        s.line({{15, 6}, {9, 12}, {15, 18}});
        break;
    case Glyph::chevronRight:
        s.line({{9, 6}, {15, 12}, {9, 18}});
        break;
    case Glyph::chevronDown:
        s.line({{6, 9}, {12, 15}, {18, 9}});
        break;
    case Glyph::house:
        s.line({{3, 11}, {12, 3.5}, {21, 11}}).line({{5, 9.5}, {5, 20.5}, {19, 20.5}, {19, 9.5}});
        s.line({{9.5, 20.5}, {9.5, 14}, {14.5, 14}, {14.5, 20.5}});
        break;
    case Glyph::arrowRight:
        s.line({{4, 12}, {20, 12}}).line({{13.5, 5.5}, {20, 12}, {13.5, 18.5}});
        break;
    case Glyph::undo:
        s.line({{9, 14}, {4, 9}, {9, 4}}).line({{4, 9}, {14.5, 9}});
        s.path.arcTo(QRectF(9, 9, 11, 11), 90, -180);
        s.path.lineTo(11, 20);
        break;
    case Glyph::photo:
        s.box(3, 3, 18, 18).circle(9, 9, 2).line({{21, 15}, {17.2, 11.2}, {15.8, 11.2}, {6, 21}});
        break;
    case Glyph::trash:
        s.line({{3, 6}, {21, 6}}).line({{19, 6}, {19, 21}, {5, 21}, {5, 6}});
        s.line({{8, 6}, {8, 3}, {16, 3}, {16, 6}}).line({{10, 11}, {10, 16.5}}).line({{14, 11}, {14, 16.5}});
        break;
    case Glyph::more:
        s.circle(5, 12, 0.8).circle(12, 12, 0.8).circle(19, 12, 0.8);
        break;
    case Glyph::share:
        s.line({{8, 9}, {5, 9}, {5, 21}, {19, 21}, {19, 9}, {16, 9}}).line({{12, 15}, {12, 3}});
        s.line({{8, 7}, {12, 3}, {16, 7}});
        break;
    }
    return s;
}

/// Thin signs look lighter than thick ones of the same stroke, so small ones get more.
qreal strokeWidth(qreal size) {
    if (size <= 14)
        return 2.4;
    if (size <= 18)
        return 2.0;
    return size <= 24 ? 1.75 : 1.6;
}

}  // namespace

void paintGlyph(QPainter& painter, Glyph glyph, const QRectF& place, const QColor& colour, bool filled) {
    if (glyph == Glyph::none)
        return;
    const Sketch drawing = sketch(glyph);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    painter.scale(place.width() / grid, place.height() / grid);
    QPen pen(colour, strokeWidth(place.width()), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (drawing.dashed)
        pen.setDashPattern({1.6, 1.9});
    painter.setPen(pen);
    painter.setBrush(filled ? QBrush(colour) : QBrush(Qt::NoBrush));
    painter.drawPath(drawing.path);
    painter.restore();
}

void paintBrandMark(QPainter& painter, const QRectF& place, const QColor& colour) {
    constexpr qreal width = 30;
    constexpr qreal height = 36;
    constexpr qreal corner = 5;
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    path.addRoundedRect(0, 0, width, height, corner, corner);
    for (const qreal top : {5.0, 15.75, 26.5})
        path.addRect(3, top, 4, 4.5);
    path.addPolygon(
        QPolygonF({{10.5, 8}, {16.6, 28.5}, {20.9, 28.5}, {27, 8}, {22.6, 8}, {18.75, 22.4}, {14.9, 8}}));
    path.closeSubpath();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    painter.scale(place.width() / width, place.height() / height);
    painter.fillPath(path, colour);
    painter.restore();
}

}  // namespace vantry
