#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "Vantry/interface/pages/StorePage.h"
#include "VantryCore/records/Parameters.h"

namespace vantry {

class LabeledInput;
class SectionLabel;

/// Where the settings that are edited live: in a production, a shot or a take.
struct ParametersBinding {
    std::function<std::optional<Parameters>()> read;  ///< nothing when the record is gone
    std::function<void(std::string_view key, const Text& value)> write;
};

/// All settings of camera, lens and recording as one form. An emptied field stores the empty text.
class ParametersEditor final : public StorePage {
    Q_OBJECT

public:
    ParametersEditor(PageContext context, ParametersBinding binding, QWidget* parent = nullptr);

    void refresh() override;

signals:
    /// The keyboard has left one of the fields.
    void finished();

private:
    [[nodiscard]] QWidget* makeSection(const ParameterSection& section);

    struct Field {
        const ParameterField* setting;
        LabeledInput* input;
    };
    struct Section {
        const ParameterSection* section;
        SectionLabel* title;
    };

    const ParametersBinding parameters;
    std::vector<Section> sections;
    std::vector<Field> fields;
};

}  // namespace vantry
