#include "bench/QtRecords.h"

#include <stdexcept>

#include <QJsonArray>
#include <QJsonObject>
#include <QLatin1String>

namespace vantry::bench::qt {
namespace {

void demand(bool holds) {
    if (!holds)
        throw std::runtime_error("not what was expected");
}

QLatin1String latin(std::string_view key) {
    return QLatin1String(key.data(), static_cast<qsizetype>(key.size()));
}

void read(const QJsonValue& value, QString& out) {
    demand(value.isString());
    out = value.toString();
}

void read(const QJsonValue& value, bool& out) {
    demand(value.isBool());
    out = value.toBool();
}

void read(const QJsonValue& value, double& out) {
    demand(value.isDouble());
    out = value.toDouble();
}

void read(const QJsonValue& value, qint64& out) {
    demand(value.isDouble());
    out = value.toInteger();
}

void read(const QJsonValue& value, QUuid& out) {
    demand(value.isString());
    out = QUuid::fromString(value.toString());
    demand(!out.isNull());
}

void read(const QJsonValue& value, QByteArray& out) {
    demand(value.isString());
    out = QByteArray::fromBase64(value.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
}

void read(const QJsonValue& value, Texts& out) {
    demand(value.isObject());
    const QJsonObject object = value.toObject();
    out.reserve(object.size());
    for (auto member = object.begin(); member != object.end(); ++member)
        read(member.value(), out[member.key()]);
}

template <Record T>
void read(const QJsonValue& value, T& out);

template <class T>
void read(const QJsonValue& value, QList<T>& out) {
    demand(value.isArray());
    const QJsonArray array = value.toArray();
    out.reserve(array.size());
    for (const auto& item : array)
        read(item, out.emplace_back());
}

template <class T>
void readMember(const QJsonValue& value, T& out) {
    demand(!value.isUndefined());
    read(value, out);
}

template <class T>
void readMember(const QJsonValue& value, std::optional<T>& out) {
    if (!value.isUndefined() && !value.isNull())
        read(value, out.emplace());
}

template <Record T>
void read(const QJsonValue& value, T& out) {
    demand(value.isObject());
    const QJsonObject object = value.toObject();
    forEachField<T>(
        [&](const auto& field) { readMember(object.value(latin(field.name)), out.*field.member); });
}

QJsonValue toValue(const QString& value) {
    return value;
}

QJsonValue toValue(bool value) {
    return value;
}

QJsonValue toValue(double value) {
    return value;
}

QJsonValue toValue(qint64 value) {
    return value;
}

QJsonValue toValue(const QUuid& value) {
    return value.toString(QUuid::WithoutBraces).toUpper();
}

QJsonValue toValue(const QByteArray& value) {
    return QString::fromLatin1(value.toBase64());
}

QJsonValue toValue(const Texts& value) {
    QJsonObject object;
    for (auto entry = value.begin(); entry != value.end(); ++entry)
        object.insert(entry.key(), entry.value());
    return object;
}

template <Record T>
QJsonValue toValue(const T& value);

template <class T>
QJsonValue toValue(const QList<T>& value) {
    QJsonArray array;
    for (const auto& item : value)
        array.append(toValue(item));
    return array;
}

template <class T>
void writeMember(QJsonObject& object, QLatin1String key, const T& value) {
    object.insert(key, toValue(value));
}

template <class T>
void writeMember(QJsonObject& object, QLatin1String key, const std::optional<T>& value) {
    if (value)
        object.insert(key, toValue(*value));
}

template <Record T>
QJsonValue toValue(const T& value) {
    QJsonObject object;
    forEachField<T>([&](const auto& field) { writeMember(object, latin(field.name), value.*field.member); });
    return object;
}

}  // namespace

Library fromDocument(const QJsonDocument& document) {
    Library library;
    read(document.object(), library);
    return library;
}

QJsonDocument toDocument(const Library& library) {
    return QJsonDocument(toValue(library).toObject());
}

}  // namespace vantry::bench::qt
