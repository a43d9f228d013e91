#pragma once

#include <span>
#include <string_view>

namespace vantry {

/// One text of a call sheet's form.
struct CallSheetField {
    std::string_view key, zh, en;
    bool multiline = false;  ///< edited and printed as a paragraph
};

/// A titled group of the form.
struct CallSheetSection {
    std::string_view zh, en;
    std::span<const CallSheetField> fields;
};

/// The form of a call sheet: the editor and the document both walk it.
struct CallSheetFields {
    /// The five sections, in order.
    [[nodiscard]] static std::span<const CallSheetSection> sections();
};

}  // namespace vantry
