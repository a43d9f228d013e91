#include <array>

#include <QPainter>
#include <QVBoxLayout>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Surface.h"
#include "Vantry/interface/design/VantryBrandMark.h"
#include "gallery/Sections.h"

namespace vantry::gallery {
namespace {

struct NamedToken {
    const char* name;
    Palette::Token token;
};

constexpr std::array tokens{
    NamedToken{"ink", &Palette::ink},
    NamedToken{"canvas", &Palette::canvas},
    NamedToken{"card", &Palette::card},
    NamedToken{"rule", &Palette::rule},
    NamedToken{"navigation", &Palette::navigation},
    NamedToken{"button", &Palette::button},
    NamedToken{"hover", &Palette::hover},
    NamedToken{"selected", &Palette::selected},
    NamedToken{"muted", &Palette::muted},
    NamedToken{"tint", &Palette::tint},
    NamedToken{"completed", &Palette::completed},
    NamedToken{"link", &Palette::link},
    NamedToken{"danger", &Palette::danger},
    NamedToken{"warning", &Palette::warning},
};
constexpr int tokensInRow = 7;

class Swatch final : public QWidget {
public:
    Swatch(Palette::Token shown, QWidget* parent)
        : QWidget(parent)
        , token(shown) {
        setFixedHeight(Metrics::brandHeight);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Palette& palette = Palette::of(*this);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        paintSurface(painter, rect(),
                     {palette.*token, palette.rule, Metrics::hairline, Metrics::radiusControl});
    }

private:
    Palette::Token token;
};

void showPalette(Board& board) {
    Section& section = board.section({"颜色", "Palette"});
    int number = 0;
    for (const auto& [name, token] : tokens) {
        if (number++ == tokensInRow)
            section.startRow();
        section.add(new Swatch(token, section.place()), {name, name}, 1);
    }
}

void showType(Board& board) {
    using Role = VantryType::Role;
    const struct {
        Role role;
        Phrase name;
        const char* text;
    } samples[] = {
        {Role::title, {"title", "title"}, "title 24 · 第二幕 夜航"},
        {Role::heading, {"heading", "heading"}, "heading 20 · Coming up 接下来的拍摄"},
        {Role::emphasis, {"emphasis", "emphasis"}, "emphasis 16 · 20B 陈舟回头"},
        {Role::body, {"body", "body"}, "body 16 · Keep the pause 停顿保留，前半可用。"},
        {Role::label, {"label", "label"}, "label 14 · Edit shot 编辑分镜"},
        {Role::caption, {"caption", "caption"}, "caption 12 · 7 Take · 4 ★ · 待拍 To shoot"},
        {Role::small, {"small", "small"}, "small 12 · 2026-11-21 07:15"},
    };
    Section& section = board.section({"字体", "VantryType"});
    auto* column = new QWidget(section.place());
    auto* lines = new QVBoxLayout(column);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(Metrics::gapInline);
    for (const auto& [role, name, text] : samples) {
        auto* line = new Label(role, &Palette::ink, Label::Length::cut, column);
        line->setPlain(QString::fromUtf8(text));
        lines->addWidget(line);
    }
    section.add(column, {"七种角色", "seven roles"}, 1);
}

/// One sign in the sizes that it is used in.
class SignSample final : public QWidget {
public:
    SignSample(const GlyphSource& shown, QWidget* parent)
        : QWidget(parent)
        , source(shown) {
        setFixedSize(Metrics::iconEmpty + 2 * Metrics::iconLarge, Metrics::iconEmpty);
        setToolTip(toQString(source.drawing));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Palette& palette = Palette::of(*this);
        QPainter painter(this);
        qreal left = 0;
        for (const int size : {Metrics::iconEmpty, Metrics::icon, Metrics::iconStatus}) {
            paintGlyph(painter, source.glyph, QRectF(left, (height() - size) / 2.0, size, size), palette.ink);
            left += size + Metrics::gapTrack;
        }
    }

private:
    GlyphSource source;
};

void showSigns(Board& board) {
    constexpr int signsInRow = 9;
    Section& section = board.section({"图标", "Glyph"}, Board::Width::full);
    int number = 0;
    for (const GlyphSource& source : glyphSources()) {
        if (number > 0 && number % signsInRow == 0)
            section.startRow();
        // The names are those of the code in both languages.
        const char* name = source.symbol.empty() ? source.drawing.data() : source.symbol.data();
        section.add(new SignSample(source, section.place()), {name, name}, 1);
        ++number;
    }
    section.startRow();
    section.add(new VantryBrandMark(section.place()), {"标志", "VantryBrandMark"});
}

}  // namespace

void showTokens(Board& board) {
    showPalette(board);
    showType(board);
    showSigns(board);
}

}  // namespace vantry::gallery
