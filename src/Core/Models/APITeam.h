#pragma once

#include <QJsonObject>
#include <QMetaType>
#include <QString>

// One team as the data service sends it; kept unconverted in the model's team table.
struct APITeam {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString nameEn MEMBER nameEn)
    Q_PROPERTY(QString flag MEMBER flag)
    Q_PROPERTY(QString fifaCode MEMBER fifaCode)
    Q_PROPERTY(QString iso2 MEMBER iso2)
    Q_PROPERTY(QString groups MEMBER groups)
    // The flag as emoji, for when the image cannot be shown.
    Q_PROPERTY(QString flagEmoji READ flagEmoji)

public:
    QString id;
    QString nameEn = QStringLiteral("TBD");
    QString flag;
    QString fifaCode;
    QString iso2;
    QString groups;

    static APITeam fromJson(const QJsonObject &object);
    QString flagEmoji() const;

    friend bool operator==(const APITeam &, const APITeam &) = default;
};
Q_DECLARE_METATYPE(APITeam)
