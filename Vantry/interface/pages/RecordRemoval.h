#pragma once

#include <functional>

#include <QObject>

#include "Vantry/interface/pages/PageContext.h"

namespace vantry {

class Button;
class QuestionSheet;

/// The way to delete the record of a page: a button, the question that it opens and, once the person agrees,
/// one structural change that takes the record out of its list, and the way to the parent's page. When that
/// page cannot be reached, since the change could not be saved, the person stays.
class RecordRemoval final : public QObject {
    Q_OBJECT

public:
    /// `remove` takes the record out of the library.
    RecordRemoval(PageContext context, QWidget& page, const Route& parent, std::function<void()> remove);

    /// To be placed on the page.
    [[nodiscard]] Button& button() noexcept { return *opener; }
    void setTexts(const QString& button, const QString& question);
    /// Closes the question without an answer: there is nothing left to delete.
    void withdraw();

private:
    void removeRecord();

    const PageContext context;
    const Route parentRoute;
    const std::function<void()> remove;
    Button* opener;
    QuestionSheet* question;
};

}  // namespace vantry
