#pragma once

#include "Match.h"

#include <QList>
#include <QMetaType>
#include <QString>

// One column of the knockout tree: its games in bracket order, so that games 2i and 2i+1 feed game i
// of the next round.
struct BracketRound {
    Q_GADGET
    Q_PROPERTY(QString round MEMBER round)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QList<Match> games MEMBER games)

public:
    QString round; // the matches' round text: "R32", "R16", "QF", "SF", "FINAL"
    QString title; // "Round of 32"
    QList<Match> games;

    friend bool operator==(const BracketRound &, const BracketRound &) = default;
};
Q_DECLARE_METATYPE(BracketRound)
