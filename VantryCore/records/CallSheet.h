#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

#include "VantryCore/records/Calendar.h"
#include "VantryCore/records/Field.h"
#include "VantryCore/records/Identifier.h"
#include "VantryCore/records/Moment.h"
#include "VantryCore/records/TextMap.h"

namespace vantry {

struct Project;

/// One person's row on a call sheet: a snapshot of the project's person and that day's facts.
struct CallSheetPerson {
    Identifier id;                       ///< of this row, not of the person
    std::optional<Identifier> sourceID;  ///< the crew or cast member, or the project for its director
    bool isCast = false;
    Text role;  ///< the job, or the character of a cast row
    Text name;
    Text callTime;
    Text phone;
    Text makeup;
    Text wardrobe;
    Text ready;
    Text notes;

    static constexpr auto fields() {
        using P = CallSheetPerson;
        return std::tuple(field("id", &P::id), field("sourceID", &P::sourceID), field("isCast", &P::isCast),
                          field("role", &P::role), field("name", &P::name), field("callTime", &P::callTime),
                          field("phone", &P::phone), field("makeup", &P::makeup),
                          field("wardrobe", &P::wardrobe), field("ready", &P::ready),
                          field("notes", &P::notes));
    }
};

/// What a synchronisation of a sheet's people did.
struct CallSheetSyncResult {
    std::int64_t added = 0;
    std::int64_t updated = 0;

    friend bool operator==(const CallSheetSyncResult&, const CallSheetSyncResult&) = default;
};

/// The daily notice for one shoot day.
struct CallSheet {
    Identifier id;
    Moment date;      ///< only its calendar day in the sheet's own zone matters
    Text timeZoneID;  ///< an IANA zone name; never changes by itself
    TextMap values;   ///< the key "fields": texts by the keys of `CallSheetFields`
    std::vector<CallSheetPerson> people;

    static constexpr auto fields() {
        using C = CallSheet;
        return std::tuple(field("id", &C::id), field("date", &C::date), field("timeZoneID", &C::timeZoneID),
                          field("fields", &C::values), field("people", &C::people));
    }

    /// A new sheet for that day in the machine's zone, with a fresh identifier, no texts and no people.
    [[nodiscard]] static CallSheet make(Moment date);

    /// The text of a field; an absent one reads as the empty text.
    [[nodiscard]] const Text& operator[](std::string_view key) const { return values[key]; }
    /// Stores the text of a field, the empty text too.
    void set(std::string_view key, Text value) { values.set(Text(key), std::move(value)); }

    /// The calendar of the sheet's zone; of the machine's zone when that name is unknown.
    [[nodiscard]] Calendar calendar() const;
    /// The key of the time that places the sheet on the calendar: "generalCall" unless that is blank, then
    /// "shootingStart".
    [[nodiscard]] std::string_view calendarTimeKey() const;
    /// The moment of that time on the sheet's day. Nothing when the text is no time such as 8:05 or 08：05,
    /// or when the clock does not show that time on that day; the first moment when it shows it twice.
    [[nodiscard]] std::optional<Moment> calendarStart() const;

    /// Appends a row for the director and each crew and cast member who has none yet.
    void addProjectPeople(const Project& project, bool english);
    /// Brings the rows' name, role and kind in line with the project and appends missing people. Day facts,
    /// the order and rows of people who left stay.
    CallSheetSyncResult syncProjectPeople(const Project& project, bool english);
};

}  // namespace vantry
