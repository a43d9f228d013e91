#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QByteArray>

#include "Vantry/documents/DocumentFlow.h"
#include "VantryCore/records/Project.h"

namespace vantry {

class VantryStore;

/// A shot of a shoot day with the act that it stands in.
struct ScheduledShot {
    Node<Act> act;
    Node<Shot> shot;
};

/// The printed notice for a shoot day: the filled form, who is called when, and the shots of that day. All
/// dates in it are told by the clock of the sheet's own zone.
struct CallSheetPDF {
    /// The sheet's day: "yyyy-MM-dd".
    [[nodiscard]] static std::string dateText(const CallSheet& sheet);
    /// The shots that take up some of the sheet's day and are not cancelled, by their start; equal starts
    /// keep the order of the project.
    [[nodiscard]] static std::vector<ScheduledShot> scheduledShots(const Project& project,
                                                                   const CallSheet& sheet);
    /// When the shot begins and ends: "HH:mm – HH:mm" within one day, with "MM-dd " in front of both
    /// otherwise; "—" without a schedule.
    [[nodiscard]] static std::string timeRange(const Shot& shot, const CallSheet& sheet);

    /// The document as a PDF, in the language of the store. Throws VantryError when there is nothing to draw
    /// on.
    [[nodiscard]] static QByteArray render(const Project& project, const CallSheet& sheet,
                                           const VantryStore& store);
    /// Saves, asks where to keep the document, writes it there and opens it. Does nothing more when the save
    /// fails: the store tells why. Other failures go to the store's `error`.
    static void save(const std::shared_ptr<const Project>& project, const Identifier& sheetID,
                     VantryStore& store);

    /// Writes the document; pages are the flow's business.
    static void write(const Project& project, const CallSheet& sheet, bool english, DocumentFlow& flow);
};

}  // namespace vantry
