#include "Vantry/interface/navigation/StatusLine.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QLocale>
#include <QPainter>
#include <QRegularExpression>

#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/TabularLabel.h"

namespace vantry {
namespace {

/// Hours and minutes as the person's locale writes them.
QString clockTime(const Moment& moment) {
    constexpr double millisecondsPerSecond = 1000;
    const double sinceUnix =
        (moment.seconds + static_cast<double>(unixSecondsOfReferenceDate)) * millisecondsPerSecond;
    const QTime time = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(sinceUnix)).time();
    static const QRegularExpression seconds(QStringLiteral("[^HhmAPap]*s+"));
    const QLocale locale;
    return locale.toString(time, locale.timeFormat(QLocale::ShortFormat).remove(seconds));
}

}  // namespace

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent)
    , state(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this))
    , time(new TabularLabel(VantryType::Role::caption, &Palette::muted, this)) {
    auto* version = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this);
    version->setPlain(QStringLiteral("Vantry · 0.7.7"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Metrics::gapCard + Metrics::iconStatus + Metrics::gapInline, Metrics::hairline,
                            Metrics::gapCard, 0);
    row->setSpacing(Metrics::gapInline);
    row->addWidget(state);
    row->addWidget(time);
    row->addStretch();
    row->addWidget(version);
    setFixedHeight(Metrics::statusHeight);
}

void StatusLine::refresh(const VantryStore& store) {
    const bool english = store.english();
    const bool unsaved = store.hasUnsavedChanges();
    QString text = english ? QStringLiteral("Saved on this Mac") : QStringLiteral("已存于本机");
    if (store.loadFailed())
        text = english ? QStringLiteral("Library could not be read") : QStringLiteral("资料库读取失败");
    else if (store.saveFailed())
        text = english ? QStringLiteral("Not saved. Please retry") : QStringLiteral("尚未保存，请重试");
    else if (unsaved)
        text = english ? QStringLiteral("Saving…") : QStringLiteral("正在保存…");
    state->setPlain(text);

    glyph = Glyph::checkCircle;
    colour = &Palette::completed;
    if (store.saveFailed() || store.loadFailed()) {
        glyph = Glyph::warning;
        colour = &Palette::danger;
    } else if (unsaved) {
        glyph = Glyph::dashedCircle;
        colour = &Palette::warning;
    }
    const bool showsTime = !unsaved && !store.saveFailed() && store.savedAt().has_value();
    time->setPlain(showsTime ? clockTime(*store.savedAt()) : QString());
    time->setVisible(showsTime);
    update();
}

void StatusLine::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.fillRect(rect(), palette.card);
    painter.fillRect(0, 0, width(), Metrics::hairline, palette.rule);
    paintGlyph(painter, glyph,
               QRectF(Metrics::gapCard, (height() - Metrics::iconStatus) / 2.0, Metrics::iconStatus,
                      Metrics::iconStatus),
               palette.*colour);
}

}  // namespace vantry
