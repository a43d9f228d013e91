#include "Vantry/interface/pages/MissingView.h"

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/EmptyViewCard.h"
#include "Vantry/interface/design/PageColumn.h"

namespace vantry {

MissingView::MissingView(PageContext given, QWidget* parent)
    : StorePage(std::move(given), parent)
    , card(new EmptyViewCard(Glyph::folder))
    , back(new Button(Button::Kind::primary)) {
    auto& content = crewPage(this, PageColumn::Above::crumbs)->content();
    content.addWidget(card);
    content.addWidget(back, 0, Qt::AlignHCenter);
    content.addStretch();
    connect(back, &Button::clicked, this, performing([this](bool) { go(Route::library()); }));
}

void MissingView::refresh() {
    card->setTexts(
        text(u"这条记录已删除", u"This record was deleted"),
        text(u"返回资料库，或撤销刚才的结构修改。", u"Return to the library or undo the structure change."));
    back->setPlain(text(u"返回资料库", u"Back to library"));
    setAccessibleName(text(u"这条记录已删除", u"This record was deleted"));
}

}  // namespace vantry
