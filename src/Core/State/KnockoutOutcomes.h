#pragma once

#include "Models/Match.h"

#include <QList>
#include <QString>

// What the feed says about knockout games only indirectly. It carries no extra-time or shoot-out
// fields, so the outcome is read from what it does carry: the scorer minutes, the final score, and the
// later games whose slots ("Winner Match 89", "Loser Match 101") are filled once a side goes through.
namespace KnockoutOutcomes {

// Whether a scorer entry was scored in extra time: "F. Torres 106'" was, "F. Balogun 90'+4'" was not.
bool scoredInExtraTime(const QString &scorerEntry);

// Fills wentToExtraTime, decidedOnPenalties and winnerTeamID of every finished knockout game, from the
// whole list so that a shoot-out's winner can be found in the game it feeds.
void derive(QList<Match> &matches);

} // namespace KnockoutOutcomes
