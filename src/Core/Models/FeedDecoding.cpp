#include "FeedDecoding.h"

#include <QUuid>

namespace FeedDecoding {

std::optional<QString> lossyString(const QJsonObject &object, QLatin1StringView key)
{
    const QJsonValue value = object.value(key);
    switch (value.type()) {
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Double: {
        // Qt keeps integral JSON numbers as 64-bit integers; toInteger() answers only for whole numbers
        // that fit and gives 0 otherwise, so every other number takes the shortest round-tripping text.
        const qint64 integral = value.toInteger();
        if (integral != 0 || value.toDouble() == 0)
            return QString::number(integral);
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    }
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    default:
        return std::nullopt;
    }
}

QString text(const QJsonObject &object, QLatin1StringView key, const QString &fallback)
{
    return lossyString(object, key).value_or(fallback);
}

QString identity(const QJsonObject &object)
{
    if (auto id = lossyString(object, QLatin1StringView("id")))
        return std::move(*id);
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

Result<QJsonDocument, DecodeError> parseDocument(const QByteArray &body)
{
    QJsonParseError error;
    QJsonDocument document = QJsonDocument::fromJson(body, &error);
    if (error.error != QJsonParseError::NoError)
        return Result<QJsonDocument, DecodeError>::failure(
            {QStringLiteral("%1 at offset %2").arg(error.errorString()).arg(error.offset)});
    return document;
}

} // namespace FeedDecoding
