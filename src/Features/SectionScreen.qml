import QtQuick
import Pitchlark.Features

// The current section's screen; the other sections' screens are not built.
Loader {
    id: screen

    required property AppModel model
    required property string section
    readonly property var screens: ({
                                        fixtures: "Fixtures/FixturesScreen.qml",
                                        standings: "Standings/StandingsScreen.qml",
                                        teams: "Teams/TeamsScreen.qml",
                                        stadiums: "Stadiums/StadiumsScreen.qml",
                                        favorites: "Favorites/FavoritesScreen.qml"
                                    })

    function show() {
        setSource(screens[section], { model: model });
    }

    onSectionChanged: show()
    Component.onCompleted: show()
}
