import QtQuick

Item {
    required property QtObject model
    required property string teamID
}
