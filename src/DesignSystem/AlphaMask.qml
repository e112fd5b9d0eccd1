import QtQuick

// Draws source through the alpha of maskSource. Both must be texture providers: an Image, or an item
// with layer.enabled, which may stay invisible.
ShaderEffect {
    property var source
    property var maskSource

    fragmentShader: "qrc:/Pitchlark/DesignSystem/shaders/alphamask.frag.qsb"
}
