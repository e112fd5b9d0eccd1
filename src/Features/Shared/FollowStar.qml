import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The star that follows or unfollows one team.
GlyphButton {
    id: star

    required property AppModel model
    required property string teamID
    required property string teamName

    // A knockout slot not yet decided is no team to follow.
    visible: model.canFollow(teamID)
    path: Glyphs.star
    // A plain array, so that looking the team up is plain JavaScript.
    readonly property var followedIDs: model.favoriteTeamIDs
    checked: followedIDs.indexOf(teamID) >= 0
    checkedColor: Theme.playoffAmber
    accessibleName: (checked ? "Unfollow " : "Follow ") + teamName
    onClicked: model.toggleFavorite(teamID)
}
