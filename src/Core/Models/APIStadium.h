#pragma once

#include <QJsonObject>
#include <QMetaType>
#include <QString>
#include <QVariant>

#include <optional>

// One venue as the data service sends it; kept unconverted in the model's stadium table.
struct APIStadium {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString nameEn MEMBER nameEn)
    Q_PROPERTY(QString fifaName MEMBER fifaName)
    Q_PROPERTY(QString cityEn MEMBER cityEn)
    Q_PROPERTY(QString countryEn MEMBER countryEn)
    Q_PROPERTY(QString region MEMBER region)
    Q_PROPERTY(QVariant capacity READ capacityValue)
    Q_PROPERTY(QString capacityText READ capacityText)
    Q_PROPERTY(QString place READ place)

public:
    QString id;
    QString nameEn = QStringLiteral("Venue TBD");
    QString fifaName;
    QString cityEn;
    QString countryEn;
    std::optional<qint64> capacity;
    QString region;

    static APIStadium fromJson(const QJsonObject &object);

    // Null when the feed gave no usable capacity.
    QVariant capacityValue() const { return capacity ? QVariant(*capacity) : QVariant(); }
    // "87,523": grouped with commas whatever the user's locale, like the panel's other English texts.
    // Empty when the feed gave no capacity.
    QString capacityText() const;
    // "Mexico City, Mexico", leaving out whichever part the feed left empty.
    QString place() const;

    friend bool operator==(const APIStadium &, const APIStadium &) = default;
};
Q_DECLARE_METATYPE(APIStadium)
