import QtQuick
import Pitchlark.DesignSystem

// How many matches are running, on the pulsing live tag.
LiveTag {
    property int count

    text: count + " LIVE"
}
