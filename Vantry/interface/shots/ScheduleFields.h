#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "Vantry/interface/pages/StorePage.h"
#include "VantryCore/records/Identifier.h"
#include "VantryCore/records/Shot.h"

class QDateTime;

namespace vantry {

class Card;
class DateTimeField;
class Label;
class VantryTextField;
class VantryToggle;

/// When a shot is planned: whether at all, when it starts and how long it takes. Starts are whole minutes of
/// the machine's calendar. A duration that cannot be is shown with what is wrong, and not stored. What the
/// person did not touch is not written.
class ScheduleFields final : public StorePage {
    Q_OBJECT

public:
    ScheduleFields(PageContext context, const Identifier& projectID, const Identifier& actID,
                   const Identifier& shotID, QWidget* parent = nullptr);

    void refresh() override;

private:
    [[nodiscard]] QWidget* makeFields();
    void turn(bool scheduled);
    void setStart(const QDateTime& reading);
    void typeDuration(const QString& typed);
    void storeDuration(std::int64_t minutes);
    void fillDuration(const Shot* shot);
    void change(const std::function<void(Shot&)>& change) const;

    const Identifier projectID;
    const Identifier actID;
    const Identifier shotID;
    Card* card;
    VantryToggle* toggle;
    Label* toggleTitle;
    QWidget* fields = nullptr;
    Label* startTitle = nullptr;
    DateTimeField* start = nullptr;
    Label* durationTitle = nullptr;
    VantryTextField* duration = nullptr;
    Label* wrong = nullptr;
    std::optional<std::int64_t> shownMinutes;  ///< the stored duration as it was last shown or written
    std::int64_t settledMinutes = 0;           ///< the one before the person began to type
    std::optional<Moment> lastStart;           ///< of the plan that was taken off
    bool isWrong = false;
    bool filling = false;
};

}  // namespace vantry
