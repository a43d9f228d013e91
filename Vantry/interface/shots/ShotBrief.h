#pragma once

#include <array>
#include <functional>

#include <QWidget>

#include "Vantry/interface/design/TextBinding.h"
#include "VantryCore/records/Shot.h"

namespace vantry {

class Card;
class Label;
class ParagraphEditor;
class VantryTextField;

/// What a shot shows and how: a ruled form of plain fields, each with its caption at the left. The field for
/// image and action takes the height that is free.
class ShotBrief final : public QWidget {
    Q_OBJECT

public:
    /// `bind` gives the way to one of the texts of the shot.
    explicit ShotBrief(const std::function<TextBinding(Text Shot::*)>& bind, QWidget* parent = nullptr);

    void refresh(bool english);

private:
    Card* card;
    QWidget* form;
    std::array<Label*, 5> captions{};
    VantryTextField* code;
    VantryTextField* title;
    ParagraphEditor* description;
    VantryTextField* framing;
    VantryTextField* movement;
};

}  // namespace vantry
