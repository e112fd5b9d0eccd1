import QtQuick
import QtQuick.Shapes

// A small vector icon from an SVG path drawn in a 24-unit box: filled, or outlined in the same colour.
Item {
    id: glyph

    property string path
    property bool filled
    property color color
    readonly property real strokeWidth: 1.8
    readonly property int pathBox: 24
    // Drawn at several times its size and scaled down, which smooths its edges on any renderer.
    readonly property int oversampling: 3

    implicitWidth: 16
    implicitHeight: 16

    Shape {
        anchors.centerIn: parent
        width: glyph.pathBox
        height: glyph.pathBox
        scale: glyph.width / glyph.pathBox
        layer.enabled: true
        layer.smooth: true
        layer.mipmap: true
        layer.textureSize.width: glyph.pathBox * glyph.oversampling
        layer.textureSize.height: glyph.pathBox * glyph.oversampling
        ShapePath {
            strokeColor: glyph.color
            strokeWidth: glyph.strokeWidth
            fillColor: glyph.filled ? glyph.color : "transparent"
            joinStyle: ShapePath.RoundJoin
            PathSvg { path: glyph.path }
        }
    }
}
