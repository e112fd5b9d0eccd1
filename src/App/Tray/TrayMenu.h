#pragma once

#include <QList>
#include <QPoint>
#include <QString>

#include <optional>

class TrayItem;

enum class TrayAction { Open, Refresh, ToggleHideScores, Quit };

// One row of the tray's menu. Both the D-Bus menu and the QSystemTrayIcon menu are built from the same
// rows, so the two kinds of tray always offer the same items.
struct TrayMenuEntry {
    int id = 0;                         // the D-Bus menu item id; 0 is the root, never a row
    QString label;                      // empty for a separator
    QString key;                        // the Ctrl+key hint, empty for none
    std::optional<TrayAction> action;   // empty for a separator
    bool ticksWhenScoresHidden = false; // a check mark that follows the tray item's scoresHidden()

    bool isSeparator() const { return label.isEmpty(); }
};

const QList<TrayMenuEntry> &trayMenuEntries();
// The row with this id, or nullptr.
const TrayMenuEntry *findTrayMenuEntry(int id);
// Emits the item's signal for the action; Open toggles the panel near position (null when unknown).
void runTrayAction(TrayItem &item, TrayAction action, const QPoint &position = {});
