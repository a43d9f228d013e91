#pragma once

#include "Vantry/app/Desktop.h"

namespace vantry {

/// The desktop that the program runs on.
class NativeDesktop final : public Desktop {
public:
    [[nodiscard]] bool open(const std::filesystem::path& file) override;
};

}  // namespace vantry
