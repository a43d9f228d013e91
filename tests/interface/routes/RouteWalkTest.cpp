// Walks through libraries that are told as data: each line is a library, steps, and where they lead.

#include <algorithm>

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "Vantry/interface/routes/Crumbs.h"
#include "Vantry/interface/routes/Navigation.h"
#include "VantryCore/persistence/Codec.h"
#include "VantryCore/records/Library.h"

namespace vantry::test {
namespace {

const QStringList placeNames{QStringLiteral("project"),  QStringLiteral("act"),     QStringLiteral("shot"),
                             QStringLiteral("take"),     QStringLiteral("library"), QStringLiteral("search"),
                             QStringLiteral("calendar"), QStringLiteral("settings")};

Route routeOf(const QJsonObject& object) {
    std::vector<Identifier> ids;
    for (const auto& id : object["ids"].toArray())
        ids.push_back(Identifier::parse(id.toString().toStdString()).value());
    switch (static_cast<Route::Place>(placeNames.indexOf(object["kind"].toString()))) {
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

QJsonObject jsonOf(const Route& route) {
    QJsonArray ids;
    for (const auto& id : {route.projectID(), route.actID(), route.shotID(), route.takeID()})
        if (id)
            ids.append(QString::fromStdString(id->text()));
    return {{"kind", placeNames[static_cast<int>(route.place())]}, {"ids", ids}};
}

QJsonObject walk(const QJsonObject& in) {
    const auto library = Codec::decode<Library>(
        QJsonDocument(in["library"].toObject()).toJson(QJsonDocument::Compact).toStdString());
    const QJsonArray failing = in["failAt"].toArray();
    Navigation places;
    QJsonArray states;
    int number = 0;
    for (const auto& value : in["steps"].toArray()) {
        const QJsonObject step = value.toObject();
        const auto flush = [&] { return !failing.contains(number); };
        if (step.contains("back"))
            places.goBack(flush);
        else
            places.go(routeOf(step["go"].toObject()), flush);
        ++number;
        QJsonArray history;
        for (const Route& route : places.history())
            history.append(jsonOf(route));
        states.append(QJsonObject{{"route", jsonOf(places.route())}, {"history", history}});
    }
    QJsonArray trail;
    for (const Crumb& crumb : crumbs(library, places.route(), true))
        trail.append(QJsonArray{QString::fromStdString(crumb.title.utf8()), jsonOf(crumb.route)});
    return {{"states", states}, {"crumbs", trail}};
}

TEST(RouteWalkTest, EveryWalkLeadsWhereItShould) {
    QFile file(QStringLiteral(VANTRY_VECTORS "/rules-routes.jsonl"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    int walks = 0;
    while (!file.atEnd()) {
        const QJsonObject told = QJsonDocument::fromJson(file.readLine()).object();
        if (told["op"].toString() != QStringLiteral("route.walk"))
            continue;
        ++walks;
        const QJsonObject out = walk(told["in"].toObject());
        EXPECT_EQ(out, told["out"].toObject())
            << told["name"].toString().toStdString() << "\n"
            << QJsonDocument(out).toJson(QJsonDocument::Compact).toStdString() << "\n"
            << QJsonDocument(told["out"].toObject()).toJson(QJsonDocument::Compact).toStdString();
    }
    EXPECT_GT(walks, 20);
}

}  // namespace
}  // namespace vantry::test
