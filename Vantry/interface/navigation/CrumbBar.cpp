#include "Vantry/interface/navigation/CrumbBar.h"

#include <algorithm>

#include <QHBoxLayout>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"

namespace vantry {

CrumbBar::CrumbBar(QWidget* parent)
    : QWidget(parent) {
    auto* inside = new QWidget(this);
    // The words, not their surfaces, stand on the page's edge.
    inside->setMaximumWidth(Metrics::pageWidth + Metrics::paddingInline);
    row = new QHBoxLayout(inside);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addStretch();
    auto* centred = new QHBoxLayout(this);
    centred->setContentsMargins(Metrics::paddingPage - Metrics::paddingInline, 0, Metrics::paddingPage, 0);
    centred->addStretch();
    centred->addWidget(inside, 1000);
    centred->addStretch();
    setFixedHeight(Metrics::crumbsHeight);
    // The longest trail, made at once: so the keyboard finds the steps in front of every page.
    constexpr std::size_t longestTrail = 4;
    while (steps.size() < longestTrail)
        addStep();
}

void CrumbBar::addStep() {
    Step step;
    const int end = row->count() - 1;
    if (!steps.empty()) {
        step.slash = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this);
        step.slash->setPlain(QStringLiteral("/"));
        step.slash->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        row->insertWidget(end, step.slash);
    }
    step.button = new Button(Button::Kind::crumb, Glyph::none, this);
    row->insertWidget(step.slash == nullptr ? end : end + 1, step.button);
    const std::size_t place = steps.size();
    connect(step.button, &Button::clicked, this, [this, place] { emit routePressed(steps[place].route); });
    steps.push_back(step);
}

void CrumbBar::refresh(const std::vector<Crumb>& trail, const Route& route) {
    for (std::size_t place = 0; place < steps.size(); ++place) {
        Step& step = steps[place];
        const bool shown = place < trail.size();
        step.button->setVisible(shown);
        if (step.slash != nullptr)
            step.slash->setVisible(shown);
        if (!shown)
            continue;
        step.route = trail[place].route;
        const QString title = toQString(trail[place].title);
        step.button->setPlain(title);
        setHelp(*step.button, title);
        step.button->setEnabled(step.route != route);
    }
    setVisible(!trail.empty());
    share();
}

void CrumbBar::share() {
    int room = width() - 2 * Metrics::paddingPage + Metrics::paddingInline;
    room = std::min(room, Metrics::pageWidth + Metrics::paddingInline);
    std::vector<Button*> shown;
    for (const Step& step : steps) {
        if (step.button->isHidden())
            continue;
        shown.push_back(step.button);
        if (step.slash != nullptr)
            room -= step.slash->sizeHint().width();
    }
    const auto wanted = [](const Button* button) { return button->sizeHint().width(); };
    std::sort(shown.begin(), shown.end(), [&](auto* a, auto* b) { return wanted(a) < wanted(b); });
    auto left = static_cast<int>(shown.size());
    for (Button* button : shown) {
        const int given = std::min(wanted(button), std::max(room, 0) / left--);
        button->setFixedWidth(given);
        room -= given;
    }
}

void CrumbBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    share();
}

}  // namespace vantry
