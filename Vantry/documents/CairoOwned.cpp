#include "Vantry/documents/CairoOwned.h"

#include <memory>
#include <utility>

namespace vantry {

void attachBytes(cairo_surface_t* surface, const char* type, std::string bytes) {
    if (surface == nullptr || bytes.empty())
        return;
    auto kept = std::make_unique<std::string>(std::move(bytes));
    const auto release = [](void* text) { delete static_cast<std::string*>(text); };
    if (cairo_surface_set_mime_data(surface, type, reinterpret_cast<const unsigned char*>(kept->data()),
                                    kept->size(), release, kept.get()) == CAIRO_STATUS_SUCCESS)
        static_cast<void>(kept.release());
}

}  // namespace vantry
