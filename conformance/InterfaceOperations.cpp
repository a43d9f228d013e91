#include <algorithm>
#include <array>
#include <cmath>

#include "Vantry/interface/design/LayoutRules.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/routes/Crumbs.h"
#include "Vantry/interface/routes/Navigation.h"
#include "Vantry/interface/shots/Drawing.h"
#include "VantryCore/records/Library.h"
#include "conformance/Operation.h"
#include "conformance/RecordJson.h"

namespace vantry::conformance {
namespace {

constexpr std::array<std::pair<std::string_view, Route::Place>, 8> placeNames{{
    {"project", Route::Place::project},
    {"act", Route::Place::act},
    {"shot", Route::Place::shot},
    {"take", Route::Place::take},
    {"library", Route::Place::library},
    {"search", Route::Place::search},
    {"calendar", Route::Place::calendar},
    {"settings", Route::Place::settings},
}};

Route::Place toPlace(const Json& json) {
    const auto& name = json.get_ref<const std::string&>();
    for (const auto& [text, place] : placeNames)
        if (text == name)
            return place;
    throw std::invalid_argument("there is no place called " + name);
}

Route toRoute(const Json& json) {
    std::vector<Identifier> ids;
    for (const auto& id : json.at("ids"))
        ids.push_back(toIdentifier(id));
    switch (toPlace(json.at("kind"))) {
    case Route::Place::project:
        return Route::project(ids.at(0));
    case Route::Place::act:
        return Route::act(ids.at(0), ids.at(1));
    case Route::Place::shot:
        return Route::shot(ids.at(0), ids.at(1), ids.at(2));
    case Route::Place::take:
        return Route::take(ids.at(0), ids.at(1), ids.at(2), ids.at(3));
    case Route::Place::search:
        return Route::search();
    case Route::Place::calendar:
        return Route::calendar();
    case Route::Place::settings:
        return Route::settings();
    case Route::Place::library:
        break;
    }
    return Route::library();
}

Json jsonOf(const Route& route) {
    Json ids = Json::array();
    for (const auto& id : {route.projectID(), route.actID(), route.shotID(), route.takeID()})
        if (id)
            ids.push_back(id->text());
    const auto* name = std::find_if(placeNames.begin(), placeNames.end(),
                                    [&](const auto& named) { return named.second == route.place(); });
    return {{"kind", name->first}, {"ids", ids}};
}

Json walk(const Json& in) {
    const auto library = toRecord<Library>(in.at("library"));
    const Json& failing = in.at("failAt");
    Navigation places;
    Json states = Json::array();
    int number = 0;
    for (const auto& step : in.at("steps")) {
        const auto flush = [&] { return std::find(failing.begin(), failing.end(), number) == failing.end(); };
        if (step.contains("back"))
            places.goBack(flush);
        else
            places.go(toRoute(step.at("go")), flush);
        ++number;
        Json history = Json::array();
        for (const Route& route : places.history())
            history.push_back(jsonOf(route));
        states.push_back({{"route", jsonOf(places.route())}, {"history", history}});
    }
    Json trail = Json::array();
    for (const Crumb& crumb : crumbs(library, places.route(), true))
        trail.push_back(Json::array({crumb.title.utf8(), jsonOf(crumb.route)}));
    return {{"states", states}, {"crumbs", trail}};
}

std::optional<double> widthOf(const Json& in) {
    const Json& width = in.at("width");
    return width.is_null() ? std::nullopt : std::optional(width.get<double>());
}

Json columns(const Json& in) {
    const ColumnsPlan plan = planColumns(widthOf(in), in.at("minimum"), in.at("gap"), in.at("heights"));
    return {{"columns", plan.columns}, {"columnWidth", plan.columnWidth}, {"height", plan.height}};
}

Json work(const Json& in) {
    const WorkPlan plan = planWork(widthOf(in), in.at("sideWidth"), in.at("gap"), in.at("heights"));
    return {{"columns", plan.columns},
            {"mainWidth", plan.mainWidth},
            {"sideWidth", plan.sideWidth},
            {"height", plan.height}};
}

QColor toColour(const Json& json) {
    const QColor colour(QString::fromStdString(json.get_ref<const std::string&>()));
    if (!colour.isValid())
        throw std::invalid_argument(json.dump() + " is no colour");
    return colour;
}

Json contrastOf(const Json& in) {
    constexpr double hundredths = 100;
    const double ratio = contrast(toColour(in.at("foreground")), toColour(in.at("background")));
    return {{"ratio", std::round(ratio * hundredths) / hundredths}};
}

Json capture(const Json& in) {
    Json points = Json::array();
    for (const auto& location : in.at("locations"))
        if (const auto point = captured(location.at(0), location.at(1), in.at("width"), in.at("height")))
            points.push_back(Json::array({point->x, point->y}));
    return {{"points", points}};
}

constexpr std::array operations{
    NamedOperation{"route.walk", walk},         NamedOperation{"layout.columns", columns},
    NamedOperation{"layout.work", work},        NamedOperation{"palette.contrast", contrastOf},
    NamedOperation{"drawing.capture", capture},
};

}  // namespace

std::span<const NamedOperation> interfaceOperations() {
    return operations;
}

}  // namespace vantry::conformance
