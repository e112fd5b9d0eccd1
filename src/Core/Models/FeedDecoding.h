#pragma once

#include "Support/Result.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QString>

#include <optional>

// Why a response body could not be read into feed records.
struct DecodeError {
    QString message;
};

namespace FeedDecoding {

// The text of one scalar: strings as they are, integral numbers in decimal, other numbers in their
// shortest round-tripping form, booleans as "true"/"false". Absent, null, objects and arrays give nothing.
std::optional<QString> lossyString(const QJsonObject &object, QLatin1StringView key);

// lossyString() with the field's default in place of nothing.
QString text(const QJsonObject &object, QLatin1StringView key, const QString &fallback);

// The record's "id", or for a record that came without one a fresh upper-case canonical UUID, made
// only then: UUIDs are costly enough to show in a whole body's decoding time.
QString identity(const QJsonObject &object);

// Every element must be an object; one that is not fails the whole list.
template<typename Record>
std::optional<QList<Record>> recordsFrom(const QJsonArray &array)
{
    QList<Record> records;
    records.reserve(array.size());
    for (const QJsonValue &element : array) {
        if (!element.isObject())
            return std::nullopt;
        records.append(Record::fromJson(element.toObject()));
    }
    return records;
}

Result<QJsonDocument, DecodeError> parseDocument(const QByteArray &body);

// An envelope body is an object holding the list under its key; the bare list is accepted too.
template<typename Record>
Result<QList<Record>, DecodeError> decodeList(const QByteArray &body, QLatin1StringView key)
{
    auto document = parseDocument(body);
    if (!document)
        return Result<QList<Record>, DecodeError>::failure(document.error());
    if (document->isObject()) {
        const QJsonValue listed = document->object().value(key);
        if (listed.isArray()) {
            if (auto records = recordsFrom<Record>(listed.toArray()))
                return std::move(*records);
        }
    }
    if (!document->isArray())
        return Result<QList<Record>, DecodeError>::failure(
            {QStringLiteral("expected an array of records or an object holding one under \"%1\"").arg(key)});
    if (auto records = recordsFrom<Record>(document->array()))
        return std::move(*records);
    return Result<QList<Record>, DecodeError>::failure(
        {QStringLiteral("an element of the list is not an object")});
}

} // namespace FeedDecoding
