#include <array>

#include "VantryCore/records/Project.h"
#include "conformance/Operation.h"
#include "conformance/RecordJson.h"

namespace vantry::conformance {
namespace {

Json linkURL(const Json& in) {
    const auto url = RelatedFile::linkURL(in.at("text").get_ref<const std::string&>());
    return {{"url", url ? Json(url->text) : Json()}};
}

Json identity(const Json& in) {
    const auto reference = toRecord<RelatedFile>(in.at("reference"));
    return {{"identity", reference.identity().utf8()}, {"isWebLink", reference.isWebLink()}};
}

Json attach(const Json& in) {
    auto project = toRecord<Project>(in.at("project"));
    const bool attached = project.attach(toRecord<RelatedFile>(in.at("reference")));
    return {{"attached", attached}, {"count", project.relatedFiles().size()}};
}

constexpr std::array operations{
    NamedOperation{"reference.linkURL", linkURL},
    NamedOperation{"reference.identity", identity},
    NamedOperation{"project.attach", attach},
};

}  // namespace

std::span<const NamedOperation> referenceOperations() {
    return operations;
}

}  // namespace vantry::conformance
