#include <array>
#include <string>

#include <QLayout>
#include <QWidget>

#include "Vantry/interface/design/PageHeading.h"
#include "Vantry/interface/design/WorkspaceHeading.h"
#include "Vantry/verification/Smoke.h"

namespace vantry {
namespace {

constexpr int narrowWidth = 430;
constexpr std::array widths{430, 640, 1100};
constexpr int headingLimit = 140;
constexpr int subtitleLimit = 240;

QString longTitle() {
    constexpr int repetitions = 50;
    return QStringLiteral("超长镜头标题 Long shot title · ").repeated(repetitions);
}

}  // namespace

int LayoutVerification::fittingHeight(QWidget& view, int width) {
    view.ensurePolished();
    for (auto* part : view.findChildren<QWidget*>())
        part->ensurePolished();
    if (auto* layout = view.layout()) {
        layout->invalidate();
        layout->activate();
    }
    return view.hasHeightForWidth() ? view.heightForWidth(width) : view.sizeHint().height();
}

void LayoutVerification::demandHeading(int height) {
    Smoke::demand(height > 0 && height < headingLimit,
                  "Long fixed heading consumed the editing viewport: " + std::to_string(height));
}

void LayoutVerification::demandSubtitle(int width, int height) {
    Smoke::demand(height < subtitleLimit, "Long workspace subtitle expanded the fixed header: " +
                                              std::to_string(width) + " / " + std::to_string(height));
}

void LayoutVerification::run() {
    Smoke::note("views are measured by the layouts of Qt Widgets, QWidget::heightForWidth, without a window");
    PageHeading heading({.titleLines = 2, .subtitleLines = 0});
    heading.setTexts({}, longTitle());
    demandHeading(fittingHeight(heading, narrowWidth));
    WorkspaceHeading workspace(2);
    workspace.setTexts({}, QStringLiteral("Title"), longTitle());
    for (const int width : widths)
        demandSubtitle(width, fittingHeight(workspace, width));
    Smoke::pass("long fixed headings and sheets within presenting window");
    Smoke::skip("LayoutVerification of the search page");
}

}  // namespace vantry
