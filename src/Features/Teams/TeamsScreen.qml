pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// Every team by name, or while something is typed the teams whose name or codes hold it, each with
// its group and follow star. A calm note when nothing matches.
Item {
    id: screen

    required property AppModel model
    readonly property bool searching: model.navigation.teamSearchText.trim().length > 0
    readonly property int teamCount: model.lists.teams.count

    SearchField {
        id: search
        objectName: "teamSearch"
        anchors { left: parent.left; right: parent.right; top: parent.top }
        anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter }
        placeholder: "Search teams or codes"
        text: screen.model.navigation.teamSearchText
        onEdited: typed => screen.model.navigation.teamSearchText = typed
    }
    FadingScrollView {
        anchors { left: parent.left; right: parent.right; top: search.bottom; bottom: parent.bottom }
        anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter; topMargin: 4 }

        Column {
            width: parent.width
            spacing: Theme.rowSpacing

            ErrorNote {
                width: parent.width
                visible: message.length > 0
                message: screen.model.errorMessage
                onRetry: screen.model.refresh()
                surfaceOpacity: screen.model.glass.surfaceOpacity
            }
            SectionHeading {
                width: parent.width
                visible: screen.teamCount > 0
                title: screen.searching ? "Results" : "All teams"
                note: screen.teamCount === 1 ? "1 team" : screen.teamCount + " teams"
            }
            GlassCard {
                id: list
                objectName: "teamList"
                width: parent.width
                visible: screen.teamCount > 0
                surfaceOpacity: screen.model.glass.surfaceOpacity
                padding: 6
                transform: AppearAnimation { target: list }

                Column {
                    width: parent.width
                    Repeater {
                        model: screen.model.lists.teams
                        delegate: TeamRow {
                            required property string key
                            required property int index
                            required code
                            required flagURL
                            required flagEmoji
                            required groupLabel
                            width: parent.width
                            model: screen.model
                            teamID: key
                            divided: index > 0
                        }
                    }
                }
            }
            EmptyState {
                objectName: "teamsEmpty"
                width: parent.width
                visible: screen.teamCount === 0
                symbol: screen.searching ? "🔍" : "🌍"
                title: screen.searching ? "No team matches “" + screen.model.navigation.teamSearchText.trim() + "”"
                     : screen.model.isLoading ? "Loading teams…" : "No teams yet"
                message: screen.searching ? "Try a country's name or its three-letter code."
                       : screen.model.isLoading ? "" : "The teams appear with the next update."
            }
        }
    }
}
