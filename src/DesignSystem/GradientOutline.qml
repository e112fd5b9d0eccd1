import QtQuick

// A rounded outline whose colour runs from top to bottom.
ShaderEffect {
    property real radius
    property real stroke: 1
    property color topColor
    property color bottomColor
    readonly property size size: Qt.size(width, height)

    fragmentShader: "qrc:/Pitchlark/DesignSystem/shaders/gradientoutline.frag.qsb"
}
