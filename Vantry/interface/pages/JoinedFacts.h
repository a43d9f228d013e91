#pragma once

#include <QString>
#include <QStringList>

namespace vantry {

/// The facts of a line with dots between them. What is empty is left out.
[[nodiscard]] inline QString joinedFacts(QStringList facts) {
    facts.removeAll(QString());
    return facts.join(QStringLiteral(" · "));
}

}  // namespace vantry
