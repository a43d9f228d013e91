#include <array>

#include "Vantry/documents/CallSheetPDF.h"
#include "Vantry/documents/PDFExport.h"
#include "conformance/MachineZone.h"
#include "conformance/Operation.h"
#include "conformance/RecordJson.h"
#include "conformance/RecordedFlow.h"

namespace vantry::conformance {
namespace {

Json linesOf(const RecordedFlow& flow) {
    Json lines = Json::array();
    for (const auto& line : flow.lines)
        lines.push_back({{"text", line.text}, {"size", line.size}, {"bold", line.bold}});
    return {{"lines", lines}};
}

Json production(const Json& in, bool report) {
    const auto project = toRecord<Project>(in.at("project"));
    const MachineZone zone(in.at("zone"));
    // The moment of the export is in no case. This one is found again by its text, which no record has.
    const Moment now{-6e10};
    const DocumentSetting setting{in.at("english"), now, Zone::machine()};
    RecordedFlow flow;
    PDFExport::write(project, report, setting, flow);
    const std::string moment = PDFExport::dateAndTime(now, setting.zone);
    Json lines = linesOf(flow);
    for (auto& line : lines.at("lines"))
        if (line.at("text") == moment)
            line.at("text") = nullptr;
    return lines;
}

Json plan(const Json& in) {
    return production(in, false);
}

Json report(const Json& in) {
    return production(in, true);
}

Json callSheet(const Json& in) {
    const MachineZone zone(in.at("zone"));
    RecordedFlow flow;
    CallSheetPDF::write(toRecord<Project>(in.at("project")), toRecord<CallSheet>(in.at("sheet")),
                        in.at("english"), flow);
    return linesOf(flow);
}

constexpr std::array operations{
    NamedOperation{"document.plan", plan},
    NamedOperation{"document.report", report},
    NamedOperation{"document.callSheet", callSheet},
};

}  // namespace

std::span<const NamedOperation> documentOperations() {
    return operations;
}

}  // namespace vantry::conformance
