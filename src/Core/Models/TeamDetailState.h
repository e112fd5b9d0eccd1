#pragma once

#include "GroupStanding.h"
#include "Match.h"
#include "TeamSummary.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariant>

#include <optional>

// Everything the team screen shows about one team. The optional members reach QML as null when absent.
struct TeamDetailState {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(TeamSummary summary MEMBER summary)
    Q_PROPERTY(QVariant standing READ standingValue)
    Q_PROPERTY(QVariant group READ groupValue)
    Q_PROPERTY(QVariant groupStanding READ groupStandingValue)
    Q_PROPERTY(QList<Match> matches MEMBER matches)
    Q_PROPERTY(QVariant nextMatch READ nextMatchValue)
    Q_PROPERTY(QVariant latestResult READ latestResultValue)

public:
    QString id;
    TeamSummary summary;
    std::optional<StandingRow> standing;
    std::optional<QString> group;
    std::optional<GroupStanding> groupStanding;
    QList<Match> matches;
    std::optional<Match> nextMatch;
    std::optional<Match> latestResult;

    QVariant standingValue() const { return valueOrNull(standing); }
    QVariant groupValue() const { return valueOrNull(group); }
    QVariant groupStandingValue() const { return valueOrNull(groupStanding); }
    QVariant nextMatchValue() const { return valueOrNull(nextMatch); }
    QVariant latestResultValue() const { return valueOrNull(latestResult); }

    friend bool operator==(const TeamDetailState &, const TeamDetailState &) = default;

private:
    template<typename T>
    static QVariant valueOrNull(const std::optional<T> &value)
    {
        return value ? QVariant::fromValue(*value) : QVariant();
    }
};
Q_DECLARE_METATYPE(TeamDetailState)
