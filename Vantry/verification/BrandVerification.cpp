#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>

#include <QFile>
#include <QImage>
#include <QString>

#include "Vantry/interface/design/Palette.h"
#include "Vantry/verification/Smoke.h"

namespace vantry {
namespace {

constexpr double leastContrast = 4.5;
constexpr double mostDivergence = 0.001;

struct NamedToken {
    const char* name;
    Palette::Token token;
};

constexpr std::array texts{
    NamedToken{"ink", &Palette::ink},         NamedToken{"muted", &Palette::muted},
    NamedToken{"link", &Palette::link},       NamedToken{"completed", &Palette::completed},
    NamedToken{"warning", &Palette::warning}, NamedToken{"danger", &Palette::danger}};
constexpr std::array surfaces{
    NamedToken{"canvas", &Palette::canvas},         NamedToken{"card", &Palette::card},
    NamedToken{"navigation", &Palette::navigation}, NamedToken{"button", &Palette::button},
    NamedToken{"selected", &Palette::selected},     NamedToken{"hover", &Palette::hover}};

std::string withTwoDecimals(double ratio) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f", ratio);
    return text.data();
}

}  // namespace

void BrandVerification::verifyMark(const QString& file) {
    Smoke::demand(QFile::exists(file) && QImage(file, "PNG").width() > 0, "Brand resource missing");
}

double BrandVerification::lowestContrast(const std::string& appearance, const Palette& palette) {
    double lowest = contrast(palette.canvas, palette.ink);
    for (const auto& text : texts)
        for (const auto& surface : surfaces) {
            const double ratio = contrast(palette.*text.token, palette.*surface.token);
            Smoke::demand(ratio >= leastContrast, appearance + ": " + text.name + " on " + surface.name +
                                                      " = " + QString::number(ratio, 'g', 6).toStdString());
            lowest = std::min(lowest, ratio);
        }
    Smoke::demand(contrast(palette.canvas, palette.ink) >= leastContrast, "Primary button contrast");
    Smoke::demand(std::abs(luminance(palette.editorInk) - luminance(palette.ink)) <= mostDivergence,
                  "Editor text diverges from family ink");
    return lowest;
}

void BrandVerification::run() {
    Smoke::note("NSAppearanceNameAqua names the light palette, NSAppearanceNameDarkAqua the dark one; images "
                "are read by Qt's QImage");
    const std::pair<const char*, const Palette&> appearances[] = {
        {"NSAppearanceNameAqua", Palette::light()}, {"NSAppearanceNameDarkAqua", Palette::dark()}};
    for (const auto& [appearance, palette] : appearances) {
        verifyMark(QStringLiteral(":/OstrelMark.png"));
        const double lowest = lowestContrast(appearance, palette);
        Smoke::pass(appearance + (" brand text / interaction / status contrast minimum " +
                                  withTwoDecimals(lowest) + ":1"));
    }
}

}  // namespace vantry
