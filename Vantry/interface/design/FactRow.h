#pragma once

#include <QWidget>

#include "Vantry/interface/design/Glyph.h"

namespace vantry {

class Label;

/// A row of a list that is only read: a name, with what it belongs to above or a line of facts below, a sign
/// in front and a remark at the right, if there are any.
class FactRow final : public QWidget {
    Q_OBJECT

public:
    struct Content {
        Glyph glyph = Glyph::none;
        QString above{};
        QString name{};
        QString below{};
        QString further{};  ///< a second line below
        QString remark{};
        bool isUnset = false;     ///< `name` only says that there is none
        bool belowLeads = false;  ///< `below` is what the row is looked at for
    };

    /// Where the row stands: in a list's card, away from its border and with small facts, or as the text of a
    /// card of its own.
    enum class Edge { card, text };

    explicit FactRow(Edge edge, QWidget* parent = nullptr);

    void setContent(const Content& content);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRect placeOfSign() const;

    const int inset;
    Glyph glyph = Glyph::none;
    Label* above;
    Label* name;
    Label* below;
    Label* further;
    Label* remark;
};

}  // namespace vantry
