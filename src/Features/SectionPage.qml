import QtQuick
import Pitchlark.DesignSystem
import Pitchlark.Features

// The page under every detail: header, section switcher, and the current section's screen.
Item {
    id: page

    required property AppModel model

    readonly property var sections: [
        { key: "fixtures", title: "Fixtures" },
        { key: "standings", title: "Standings" },
        { key: "teams", title: "Teams" },
        { key: "stadiums", title: "Stadiums" },
        { key: "favorites", title: "Favorites" }
    ]

    Column {
        id: top
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.gutter }
        spacing: 12

        PanelHeader {
            width: parent.width
            model: page.model
            title: page.sections.find(section => section.key === page.model.navigation.section)?.title ?? ""
        }
        SectionSwitcher {
            width: parent.width
            sections: page.sections
            current: page.model.navigation.section
            onSelected: key => page.model.navigation.section = key
        }
    }

    SectionScreen {
        anchors { left: parent.left; right: parent.right; top: top.bottom; bottom: parent.bottom }
        anchors.topMargin: Theme.rowSpacing
        model: page.model
        section: page.model.navigation.section
    }
}
