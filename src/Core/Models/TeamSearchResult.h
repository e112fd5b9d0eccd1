#pragma once

#include <QMetaType>
#include <QString>
#include <QUrl>
#include <QVariant>

#include <optional>

struct TeamSearchResult {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString code MEMBER code)
    Q_PROPERTY(QUrl flagURL MEMBER flagURL)
    Q_PROPERTY(QString flagEmoji MEMBER flagEmoji)
    Q_PROPERTY(QVariant groupLabel READ groupLabelValue)

public:
    QString id;
    QString name;
    QString code;
    QUrl flagURL;
    QString flagEmoji;
    std::optional<QString> groupLabel;

    QVariant groupLabelValue() const { return groupLabel ? QVariant(*groupLabel) : QVariant(); }

    friend bool operator==(const TeamSearchResult &, const TeamSearchResult &) = default;
};
Q_DECLARE_METATYPE(TeamSearchResult)
