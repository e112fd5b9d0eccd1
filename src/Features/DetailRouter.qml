import QtQuick

// The screen for one route: a match, a team, a stadium, or the settings.
DetailScaffold {
    id: router

    required property var route

    title: {
        switch (route.kindName) {
        case "match": return "Match";
        case "team": return model.teamSummary(route.id).name;
        case "stadium": return "Stadium";
        default: return "Settings";
        }
    }

    Loader {
        width: parent.width
        active: router.route.kindName === "match"
        sourceComponent: MatchDetail {
            model: router.model
            matchID: router.route.id
        }
    }
}
