#pragma once

#include <memory>
#include <string>

#include <QByteArray>

#include "Vantry/documents/DocumentFlow.h"
#include "VantryCore/records/Project.h"
#include "VantryCore/records/Zone.h"

namespace vantry {

class VantryStore;

/// What a document needs to know beside its records.
struct DocumentSetting {
    bool english = false;
    Moment now;  ///< the moment of the export
    Zone zone;   ///< the machine's
};

/// The two documents of a whole production: the storyboard plan for the director of photography, with frames
/// and parameters, and the shoot report for the director, with every take that was logged.
struct PDFExport {
    /// The document as a PDF, in the language of the store. Throws VantryError when there is nothing to draw
    /// on.
    [[nodiscard]] static QByteArray render(const Project& project, bool report, const VantryStore& store);
    /// Saves, asks where to keep the document, writes it there and opens it. Failures go to the store's
    /// `error`. What cannot be saved can still be printed: a failed save does not hold it up.
    static void save(const std::shared_ptr<const Project>& project, bool report, VantryStore& store);

    /// Writes the document from the title to the last shot; pages are the flow's business.
    static void write(const Project& project, bool report, const DocumentSetting& setting,
                      DocumentFlow& flow);
    /// A moment as documents print it: "yyyy-MM-dd HH:mm" by the clock of the zone.
    [[nodiscard]] static std::string dateAndTime(Moment moment, const Zone& zone);
    /// How documents name a sound mode.
    [[nodiscard]] static std::string sound(SoundMode mode, bool english);
    /// Writes three lines: lens, camera, recording and monitoring, with every key, filled or not.
    static void parameters(const Parameters& values, bool english, DocumentFlow& flow);
};

}  // namespace vantry
