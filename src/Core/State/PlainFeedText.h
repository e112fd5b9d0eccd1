#pragma once

#include "Models/APIStadium.h"
#include "Models/APITeam.h"
#include "Models/GroupStanding.h"
#include "Models/Match.h"

#include <QString>

// Feed texts as the program shows them: one line of plain characters of sane length. The feed is not
// ours; a NUL would cut a notification short, a line break would split a table row, a bidirectional
// override would reorder the score line, and a name of ten thousand characters would fill the screen.
namespace PlainFeedText {

inline constexpr qsizetype maximumLength = 200;

// Line breaks and tabs become spaces; other control characters and the bidirectional embeddings,
// overrides and isolates are dropped; a text longer than maximumLength ends in "…" at that length.
QString plain(const QString &text);

// The same for every text field a screen, the tray or a notification shows.
Match plain(Match match);
GroupStanding plain(GroupStanding standing);
APITeam plain(APITeam team);
APIStadium plain(APIStadium stadium);

} // namespace PlainFeedText
