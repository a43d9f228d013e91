#include "Vantry/interface/shots/ShotTexts.h"

#include <algorithm>
#include <string_view>

#include "Vantry/app/QtText.h"

namespace vantry {

QString shotName(const Shot& shot) {
    return toQString(shot.code) + QLatin1Char(' ') + toQString(shot.title);
}

QString takeName(const VantryTake& take) {
    return QStringLiteral("Take %1").arg(take.number, 2, 10, QLatin1Char('0'));
}

QString firstLineOf(const Text& text) {
    const std::string_view written = trimmed(text.utf8());
    const std::size_t end = std::min(
        {written.find_first_of("\r\n"), written.find("\u2028"), written.find("\u2029"), written.size()});
    return toQString(trimmed(written.substr(0, end)));
}

QString starsText(std::int64_t stars) {
    return QString::number(stars) + QStringLiteral(" ★");
}

QString emptyFrameText(bool english) {
    return english ? QStringLiteral("Import or draw a storyboard") : QStringLiteral("导入图片或绘制分镜");
}

QString resultWord(TakeResult result, bool english) {
    switch (result) {
    case TakeResult::good:
        return QStringLiteral("Good");
    case TakeResult::ng:
        return QStringLiteral("NG");
    case TakeResult::pending:
        break;
    }
    return english ? QStringLiteral("Pending") : QStringLiteral("待定");
}

std::pair<Glyph, Palette::Token> resultSign(TakeResult result) {
    switch (result) {
    case TakeResult::good:
        return {Glyph::check, &Palette::completed};
    case TakeResult::ng:
        return {Glyph::cross, &Palette::danger};
    case TakeResult::pending:
        break;
    }
    return {Glyph::dashedCircle, &Palette::warning};
}

}  // namespace vantry
