pragma ComponentBehavior: Bound

import QtQuick
import Pitchlark.Features

// The screen for one route: a match, a team, a stadium, or the settings.
DetailScaffold {
    id: router

    required property var route
    property UpdateController updates

    title: {
        switch (route.kindName) {
        case "match": return "Match";
        case "team": return model.teamSummary(route.id).name;
        case "stadium": return model.allStadiumsSorted.find(stadium => stadium.id === route.id)?.nameEn ?? "Stadium";
        default: return "Settings";
        }
    }

    Loader {
        width: parent.width
        sourceComponent: ({
                              match: match,
                              team: team,
                              stadium: stadium,
                              settings: settings
                          })[router.route.kindName]
    }
    Component {
        id: match
        MatchDetail { model: router.model; matchID: router.route.id }
    }
    Component {
        id: team
        TeamDetail { model: router.model; teamID: router.route.id }
    }
    Component {
        id: stadium
        StadiumDetail { model: router.model; stadiumID: router.route.id }
    }
    Component {
        id: settings
        SettingsScreen { model: router.model; updates: router.updates }
    }
}
