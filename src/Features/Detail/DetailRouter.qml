import QtQuick
import Pitchlark.Features

// The screen for one route: a match, a team, a stadium, or the settings.
DetailScaffold {
    id: router

    required property panelRoute route
    property UpdateController updates

    title: model.detailTitle(route)

    // A router shows one route for its whole life, so its page is built once, with the page's own
    // required properties.
    Loader {
        width: parent.width
        Component.onCompleted: {
            const id = router.route.id;
            switch (router.route.kindName) {
            case "match":
                setSource("MatchDetail.qml", { model: router.model, matchID: id });
                break;
            case "team":
                setSource("TeamDetail.qml", { model: router.model, teamID: id });
                break;
            case "stadium":
                setSource("StadiumDetail.qml", { model: router.model, stadiumID: id });
                break;
            default:
                setSource("../Settings/SettingsScreen.qml", { model: router.model, updates: router.updates });
            }
        }
    }
}
