#pragma once

#include <optional>
#include <tuple>

#include <QByteArray>
#include <QHash>
#include <QJsonDocument>
#include <QList>
#include <QString>
#include <QUuid>

#include "VantryCore/records/Field.h"

/// The records as a program would hold them that is built on Qt's containers and Qt's JSON alone.
namespace vantry::bench::qt {

using Texts = QHash<QString, QString>;

struct Parameters {
    Texts values;

    static constexpr auto fields() {
        using R = Parameters;
        return std::tuple(field("values", &R::values));
    }
};

struct Point {
    double x = 0, y = 0;

    static constexpr auto fields() {
        using R = Point;
        return std::tuple(field("x", &R::x), field("y", &R::y));
    }
};

struct Stroke {
    QUuid id;
    QList<Point> points;

    static constexpr auto fields() {
        using R = Stroke;
        return std::tuple(field("id", &R::id), field("points", &R::points));
    }
};

struct Take {
    QUuid id;
    std::optional<QString> conflictKey;
    qint64 number = 0;
    std::optional<qint64> cameraNumber, soundNumber;
    QString soundMode, cameraFile, mixerFile, notes, result;
    qint64 stars = 0;
    Parameters parameters;
    double createdAt = 0;

    static constexpr auto fields() {
        using R = Take;
        return std::tuple(field("id", &R::id), field("conflictKey", &R::conflictKey),
                          field("number", &R::number), field("cameraNumber", &R::cameraNumber),
                          field("soundNumber", &R::soundNumber), field("soundMode", &R::soundMode),
                          field("cameraFile", &R::cameraFile), field("mixerFile", &R::mixerFile),
                          field("notes", &R::notes), field("result", &R::result), field("stars", &R::stars),
                          field("parameters", &R::parameters), field("createdAt", &R::createdAt));
    }
};

struct Shot {
    QUuid id;
    std::optional<QString> conflictKey;
    QString code, title, description, framing, movement, soundDescription, soundMode;
    Parameters parameters;
    std::optional<QString> imageKey;
    QList<Stroke> strokes;
    std::optional<double> scheduledAt;
    qint64 durationMinutes = 0;
    bool cancelled = false;
    QList<Take> takes;

    static constexpr auto fields() {
        using R = Shot;
        return std::tuple(field("id", &R::id), field("conflictKey", &R::conflictKey), field("code", &R::code),
                          field("title", &R::title), field("description", &R::description),
                          field("framing", &R::framing), field("movement", &R::movement),
                          field("soundDescription", &R::soundDescription), field("soundMode", &R::soundMode),
                          field("parameters", &R::parameters), field("imageKey", &R::imageKey),
                          field("strokes", &R::strokes), field("scheduledAt", &R::scheduledAt),
                          field("durationMinutes", &R::durationMinutes), field("cancelled", &R::cancelled),
                          field("takes", &R::takes));
    }
};

struct Act {
    QUuid id;
    std::optional<QString> conflictKey;
    QString title;
    QList<Shot> shots;

    static constexpr auto fields() {
        using R = Act;
        return std::tuple(field("id", &R::id), field("conflictKey", &R::conflictKey),
                          field("title", &R::title), field("shots", &R::shots));
    }
};

struct CrewMember {
    QUuid id;
    QString role, customRole, name;

    static constexpr auto fields() {
        using R = CrewMember;
        return std::tuple(field("id", &R::id), field("role", &R::role), field("customRole", &R::customRole),
                          field("name", &R::name));
    }
};

struct CastMember {
    QUuid id;
    QString character, actor;

    static constexpr auto fields() {
        using R = CastMember;
        return std::tuple(field("id", &R::id), field("character", &R::character), field("actor", &R::actor));
    }
};

struct Person {
    QUuid id;
    std::optional<QUuid> sourceID;
    bool isCast = false;
    QString role, name, callTime, phone, makeup, wardrobe, ready, notes;

    static constexpr auto fields() {
        using R = Person;
        return std::tuple(field("id", &R::id), field("sourceID", &R::sourceID), field("isCast", &R::isCast),
                          field("role", &R::role), field("name", &R::name), field("callTime", &R::callTime),
                          field("phone", &R::phone), field("makeup", &R::makeup),
                          field("wardrobe", &R::wardrobe), field("ready", &R::ready),
                          field("notes", &R::notes));
    }
};

struct CallSheet {
    QUuid id;
    double date = 0;
    QString timeZoneID;
    Texts fieldTexts;
    QList<Person> people;

    static constexpr auto fields() {
        using R = CallSheet;
        return std::tuple(field("id", &R::id), field("date", &R::date), field("timeZoneID", &R::timeZoneID),
                          field("fields", &R::fieldTexts), field("people", &R::people));
    }
};

struct RelatedFile {
    QUuid id;
    QString kind, name, location;
    std::optional<QByteArray> bookmark;
    QString notes;

    static constexpr auto fields() {
        using R = RelatedFile;
        return std::tuple(field("id", &R::id), field("kind", &R::kind), field("name", &R::name),
                          field("location", &R::location), field("bookmark", &R::bookmark),
                          field("notes", &R::notes));
    }
};

struct Project {
    QUuid id;
    std::optional<QString> conflictKey;
    QString title, director;
    std::optional<QList<CrewMember>> crewMembers;
    std::optional<QList<CastMember>> castMembers;
    std::optional<QList<CallSheet>> callSheetRecords;
    std::optional<QList<RelatedFile>> relatedFileRecords;
    QString notes;
    Parameters defaults;
    double createdAt = 0;
    QList<Act> acts;

    static constexpr auto fields() {
        using R = Project;
        return std::tuple(
            field("id", &R::id), field("conflictKey", &R::conflictKey), field("title", &R::title),
            field("director", &R::director), field("crewMembers", &R::crewMembers),
            field("castMembers", &R::castMembers), field("callSheetRecords", &R::callSheetRecords),
            field("relatedFileRecords", &R::relatedFileRecords), field("notes", &R::notes),
            field("defaults", &R::defaults), field("createdAt", &R::createdAt), field("acts", &R::acts));
    }
};

struct Library {
    QString format;
    qint64 version = 0;
    QList<Project> projects;

    static constexpr auto fields() {
        using R = Library;
        return std::tuple(field("format", &R::format), field("version", &R::version),
                          field("projects", &R::projects));
    }
};

/// Makes records of a parsed document. Throws std::runtime_error for anything that it does not understand.
[[nodiscard]] Library fromDocument(const QJsonDocument& document);
[[nodiscard]] QJsonDocument toDocument(const Library& library);

}  // namespace vantry::bench::qt
