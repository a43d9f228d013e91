#pragma once

#include "Vantry/interface/pages/StorePage.h"

namespace vantry {

class Button;
class EmptyViewCard;

/// The quiet answer to a route whose record has gone.
class MissingView final : public StorePage {
    Q_OBJECT

public:
    explicit MissingView(PageContext context, QWidget* parent = nullptr);

    void refresh() override;

private:
    EmptyViewCard* card;
    Button* back;
};

}  // namespace vantry
