#include "Vantry/interface/design/WorkspaceTabs.h"

namespace vantry {

WorkspaceTabs::WorkspaceTabs(int count, QWidget* parent)
    : SegmentedChoice(QList<Segment::Look>(count), Size::tabs, parent) {}

void WorkspaceTabs::setTitles(const QStringList& titles, bool english) {
    SegmentedChoice::setTitles(titles);
    setName(english ? QStringLiteral("Section") : QStringLiteral("页面"));
}

}  // namespace vantry
