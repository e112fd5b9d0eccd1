import QtQuick

Item {
    required property QtObject model
    property QtObject updates
}
