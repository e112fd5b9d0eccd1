import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The look of the panel's glass, applied while the sliders move.
SettingsSection {
    id: section

    // Below this the cards would vanish into the glass and their text with them.
    readonly property real minimumSurfaceOpacity: 0.2

    title: "Glass"

    SliderRow {
        width: parent.width
        controlName: "glassBlur"
        title: "Blur"
        value: section.model.glassBlur
        onMoved: value => section.model.glassBlur = value
        onSettled: section.model.saveGlassSettings()
    }
    SliderRow {
        width: parent.width
        controlName: "glassTint"
        title: "Tint strength"
        value: section.model.glassTint
        onMoved: value => section.model.glassTint = value
        onSettled: section.model.saveGlassSettings()
    }
    Column {
        width: parent.width
        spacing: 6
        RowLabel {
            width: parent.width
            title: "Tint colour"
        }
        HueStrip {
            objectName: "glassTintHue"
            width: parent.width
            accessibleName: "Tint colour"
            value: section.model.glassTintHue
            onMoved: value => section.model.glassTintHue = value
            onPressedChanged: if (!pressed) section.model.saveGlassSettings()
        }
    }
    SliderRow {
        width: parent.width
        controlName: "glassGrain"
        title: "Grain"
        value: section.model.glassGrain
        onMoved: value => section.model.glassGrain = value
        onSettled: section.model.saveGlassSettings()
    }
    SliderRow {
        width: parent.width
        controlName: "surfaceOpacity"
        title: "Card opacity"
        from: section.minimumSurfaceOpacity
        value: section.model.surfaceOpacity
        onMoved: value => section.model.surfaceOpacity = value
        onSettled: section.model.saveGlassSettings()
    }
    SwitchRow {
        width: parent.width
        controlName: "floatingCards"
        title: "Floating cards"
        detail: "Cards float on soft glass, without the panel's frame"
        checked: section.model.floatingCards
        onToggled: checked => section.model.floatingCards = checked
    }
    CapsuleButton {
        objectName: "resetGlass"
        anchors.right: parent.right
        text: "Reset to defaults"
        onClicked: section.model.resetGlassDefaults()
    }
}
