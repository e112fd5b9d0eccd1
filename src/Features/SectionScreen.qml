import QtQuick

// The current section's screen.
Loader {
    id: screen

    required property QtObject model
    required property string section

    sourceComponent: ({ fixtures: fixtures, standings: standings })[section] ?? placeholder

    Component {
        id: fixtures
        FixturesScreen { model: screen.model }
    }
    Component {
        id: standings
        StandingsScreen { model: screen.model }
    }
    // The sections still to come keep an empty page.
    Component {
        id: placeholder
        Item {}
    }
}
