pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.Features

// The current section's screen.
Loader {
    id: screen

    required property AppModel model
    required property string section

    sourceComponent: ({
                          fixtures: fixtures,
                          standings: standings,
                          teams: teams,
                          stadiums: stadiums,
                          favorites: favorites
                      })[section]

    Component {
        id: fixtures
        FixturesScreen { model: screen.model }
    }
    Component {
        id: standings
        StandingsScreen { model: screen.model }
    }
    Component {
        id: teams
        TeamsScreen { model: screen.model }
    }
    Component {
        id: stadiums
        StadiumsScreen { model: screen.model }
    }
    Component {
        id: favorites
        FavoritesScreen { model: screen.model }
    }
}
