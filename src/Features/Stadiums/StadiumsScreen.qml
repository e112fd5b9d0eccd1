import QtQuick

Item {
    required property QtObject model
}
