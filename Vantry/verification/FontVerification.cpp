#include <algorithm>
#include <string>

#include <QFile>
#include <QFont>
#include <QRawFont>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/VantryType.h"
#include "Vantry/verification/Smoke.h"

namespace vantry {
namespace {

struct Weight {
    const char* style;
    QFont::Weight weight;
};

constexpr Weight weights[] = {{"Regular", QFont::Normal},
                              {"Medium", QFont::Medium},
                              {"SemiBold", QFont::DemiBold},
                              {"Bold", QFont::Bold}};

/// Whether the system gives the face "Family-Style" to who asks for that family and weight. It always gives
/// one; its own names tell which.
bool loads(const QString& face) {
    const QString family = face.section(QLatin1Char('-'), 0, 0);
    const QString style = face.section(QLatin1Char('-'), 1);
    const auto* known = std::find_if(std::begin(weights), std::end(weights),
                                     [&](const Weight& one) { return style == QLatin1String(one.style); });
    if (known == std::end(weights))
        return false;
    QFont font(family);
    font.setWeight(known->weight);
    const QRawFont given = QRawFont::fromFont(font);
    return given.isValid() && given.familyName().startsWith(family) &&
           given.styleName().remove(QLatin1Char(' ')) == style;
}

}  // namespace

void FontVerification::verifyFace(const std::string& name, const QString& folder) {
    const QString face = toQString(std::string_view(name));
    Smoke::demand(loads(face), "Inter font failed to load: " + name);
    Smoke::demand(QFile::exists(folder + face + QStringLiteral(".ttf")), "Missing bundled font: " + name);
}

void FontVerification::run() {
    Smoke::note("fonts are looked up by Qt's QFont and told by QRawFont");
    for (const auto face : VantryType::families)
        verifyFace(std::string(face), QStringLiteral(":/fonts/"));
    Smoke::pass("bundled Inter Regular / Medium / SemiBold / Bold available");
}

}  // namespace vantry
