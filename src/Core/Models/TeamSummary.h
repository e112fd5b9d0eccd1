#pragma once

#include <QMetaType>
#include <QString>
#include <QUrl>

struct TeamSummary {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString code MEMBER code)
    Q_PROPERTY(QUrl flagURL MEMBER flagURL)
    Q_PROPERTY(QString flagEmoji MEMBER flagEmoji)

public:
    QString id;
    QString name;
    QString code;
    QUrl flagURL;
    QString flagEmoji;

    friend bool operator==(const TeamSummary &, const TeamSummary &) = default;
};
Q_DECLARE_METATYPE(TeamSummary)
