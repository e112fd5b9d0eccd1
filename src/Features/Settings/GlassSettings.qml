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
        value: section.model.glass.blur
        onMoved: value => section.model.glass.blur = value
        onSettled: section.model.glass.save()
    }
    SliderRow {
        width: parent.width
        controlName: "glassTint"
        title: "Tint strength"
        value: section.model.glass.tint
        onMoved: value => section.model.glass.tint = value
        onSettled: section.model.glass.save()
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
            value: section.model.glass.tintHue
            onMoved: value => section.model.glass.tintHue = value
            onPressedChanged: if (!pressed) section.model.glass.save()
        }
    }
    SliderRow {
        width: parent.width
        controlName: "glassGrain"
        title: "Grain"
        value: section.model.glass.grain
        onMoved: value => section.model.glass.grain = value
        onSettled: section.model.glass.save()
    }
    SliderRow {
        width: parent.width
        controlName: "surfaceOpacity"
        title: "Card opacity"
        from: section.minimumSurfaceOpacity
        value: section.model.glass.surfaceOpacity
        onMoved: value => section.model.glass.surfaceOpacity = value
        onSettled: section.model.glass.save()
    }
    SwitchRow {
        width: parent.width
        controlName: "floatingCards"
        title: "Floating cards"
        detail: "Cards float on soft glass, without the panel's frame"
        checked: section.model.glass.floatingCards
        onToggled: checked => section.model.glass.floatingCards = checked
    }
    CapsuleButton {
        objectName: "resetGlass"
        anchors.right: parent.right
        text: "Reset to defaults"
        onClicked: section.model.glass.resetDefaults()
    }
}
