#pragma once

#include "BracketRound.h"
#include "Match.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariant>

#include <optional>

// The knockout stage as a tree, read from the feed's own slot labels rather than from a fixed table.
// It assumes that every later game names its two sides "Winner Match N" with N the earlier game's match
// number, that the one game no other game takes a winner from is the final, and that games whose sides
// are only "Loser Match N" (the third-place game) stand beside the tree. A game outside these links is
// left out, and a missing link leaves a round short rather than guessing.
struct KnockoutBracket {
    Q_GADGET
    Q_PROPERTY(QList<BracketRound> rounds MEMBER rounds)
    Q_PROPERTY(QList<Match> placementGames MEMBER placementGames)
    Q_PROPERTY(int currentRound MEMBER currentRound)
    Q_PROPERTY(QVariant finalMatch READ finalMatchValue)
    Q_PROPERTY(QString championTeamID READ championTeamIDText)
    Q_PROPERTY(QString championName READ championName)

public:
    QList<BracketRound> rounds; // earliest round first, the final last
    QList<Match> placementGames;
    int currentRound = 0; // the round being played now, or the next one; the last once all are played

    static KnockoutBracket from(const QList<Match> &matches);

    std::optional<Match> finalMatch() const;
    // The final's winner; absent until the final is won and the program can know by whom.
    std::optional<QString> championTeamID() const;
    QString championName() const;

    QVariant finalMatchValue() const;
    QString championTeamIDText() const { return championTeamID().value_or(QString()); }

    friend bool operator==(const KnockoutBracket &, const KnockoutBracket &) = default;
};
Q_DECLARE_METATYPE(KnockoutBracket)
