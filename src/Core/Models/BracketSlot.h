#pragma once

#include <QString>

#include <optional>

// A knockout side's slot label as the feed writes it ("Winner Match 89", "Loser Match 101",
// "Winner Group E"), read for the earlier game it links to.
namespace BracketSlot {

enum class Link { winner, loser };

// The match number the label takes a side from: "Winner Match 89" read as a winner link gives 89.
std::optional<int> linkedMatchNumber(const QString &slotLabel, Link link);

// A team id that names a real side; "0" stands for a slot not yet decided.
bool isDecidedSide(const QString &teamID);

} // namespace BracketSlot
