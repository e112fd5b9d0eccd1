import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// Every team by name, or while something is typed the teams whose name or codes hold it, each with
// its group and follow star. A calm note when nothing matches.
Item {
    id: screen

    required property QtObject model
    readonly property bool searching: model.teamSearchText.trim().length > 0
    // The rows in one shape, whichever list they come from.
    readonly property var rows: searching ? searchRows() : allRows()

    function allRows() {
        return model.allTeamsSorted.map(team => ({
            id: team.id, name: team.nameEn, code: team.fifaCode, flagURL: team.flag,
            flagEmoji: team.flagEmoji, groupLabel: team.groups.length > 0 ? "Group " + team.groups : ""
        }));
    }
    function searchRows() {
        // The results depend on the text, the teams and the tables.
        model.teamSearchText;
        model.allTeamsSorted;
        model.standings;
        return model.teamSearchResults().map(result => ({
            id: result.id, name: result.name, code: result.code, flagURL: result.flagURL,
            flagEmoji: result.flagEmoji, groupLabel: result.groupLabel ?? ""
        }));
    }

    SearchField {
        id: search
        objectName: "teamSearch"
        anchors { left: parent.left; right: parent.right; top: parent.top }
        anchors { leftMargin: Theme.gutter; rightMargin: Theme.gutter }
        placeholder: "Search teams or codes"
        text: screen.model.teamSearchText
        onEdited: typed => screen.model.teamSearchText = typed
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
                surfaceOpacity: screen.model.surfaceOpacity
            }
            SectionHeading {
                width: parent.width
                visible: screen.rows.length > 0
                title: screen.searching ? "Results" : "All teams"
                note: screen.rows.length === 1 ? "1 team" : screen.rows.length + " teams"
            }
            GlassCard {
                id: list
                objectName: "teamList"
                width: parent.width
                visible: screen.rows.length > 0
                surfaceOpacity: screen.model.surfaceOpacity
                padding: 6
                transform: AppearAnimation { target: list }

                Column {
                    width: parent.width
                    Repeater {
                        model: screen.rows
                        delegate: TeamRow {
                            required property var modelData
                            required property int index
                            width: parent.width
                            model: screen.model
                            teamID: modelData.id
                            name: modelData.name
                            code: modelData.code
                            flagURL: modelData.flagURL
                            flagEmoji: modelData.flagEmoji
                            groupLabel: modelData.groupLabel
                            divided: index > 0
                        }
                    }
                }
            }
            EmptyState {
                objectName: "teamsEmpty"
                width: parent.width
                visible: screen.rows.length === 0
                symbol: screen.searching ? "🔍" : "🌍"
                title: screen.searching ? "No team matches “" + screen.model.teamSearchText.trim() + "”"
                     : screen.model.isLoading ? "Loading teams…" : "No teams yet"
                message: screen.searching ? "Try a country's name or its three-letter code."
                       : screen.model.isLoading ? "" : "The teams appear with the next update."
            }
        }
    }
}
