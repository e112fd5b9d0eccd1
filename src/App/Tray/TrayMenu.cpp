#include "TrayMenu.h"

#include "TrayItem.h"

#include <algorithm>

const QList<TrayMenuEntry> &trayMenuEntries()
{
    // "Open Pitchlark" comes first because GNOME's host opens this menu on a left click and sends
    // Activate only on a double click: without it GNOME users could not reach the panel.
    static const QList<TrayMenuEntry> entries{
        {1, QStringLiteral("Open Pitchlark"), {}, TrayAction::Open},
        {2, {}, {}, std::nullopt},
        {3, QStringLiteral("Refresh Now"), QStringLiteral("r"), TrayAction::Refresh},
        {6, QStringLiteral("Hide Scores"), {}, TrayAction::ToggleHideScores, true},
        {4, {}, {}, std::nullopt},
        {5, QStringLiteral("Quit Pitchlark"), QStringLiteral("q"), TrayAction::Quit},
    };
    return entries;
}

const TrayMenuEntry *findTrayMenuEntry(int id)
{
    const QList<TrayMenuEntry> &entries = trayMenuEntries();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [id](const TrayMenuEntry &entry) { return entry.id == id; });
    return found == entries.end() ? nullptr : &*found;
}

void runTrayAction(TrayItem &item, TrayAction action, const QPoint &position)
{
    switch (action) {
    case TrayAction::Open:
        emit item.activated(position);
        break;
    case TrayAction::Refresh:
        emit item.refreshRequested();
        break;
    case TrayAction::ToggleHideScores:
        emit item.hideScoresToggled();
        break;
    case TrayAction::Quit:
        emit item.quitRequested();
        break;
    }
}
