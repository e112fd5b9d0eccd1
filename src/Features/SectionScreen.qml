import QtQuick

// A section's list. The section screens fill it with their own rows.
ListView {
    id: screen

    required property QtObject model
    required property string section

    clip: true
    spacing: 10
}
