import QtQuick

// Draws a texture provider (an Image, a layered item, or the item a layer effect is applied to) with
// round corners.
ShaderEffect {
    property var source
    property real radius
    readonly property size size: Qt.size(width, height)

    fragmentShader: "qrc:/Pitchlark/DesignSystem/shaders/roundedclip.frag.qsb"
}
