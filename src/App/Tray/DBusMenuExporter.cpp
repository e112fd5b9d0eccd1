#include "DBusMenuExporter.h"

#include "TrayItem.h"
#include "TrayMenu.h"

namespace {

bool itemExists(int id)
{
    return id == 0 || findTrayMenuEntry(id) != nullptr;
}

QVariantMap itemProperties(const TrayItem &tray, int id)
{
    if (id == 0)
        return {{QStringLiteral("children-display"), QStringLiteral("submenu")}};
    const TrayMenuEntry *entry = findTrayMenuEntry(id);
    if (entry->isSeparator())
        return {{QStringLiteral("type"), QStringLiteral("separator")}};
    QVariantMap properties{{QStringLiteral("label"), entry->label},
                           {QStringLiteral("enabled"), true},
                           {QStringLiteral("visible"), true}};
    if (!entry->key.isEmpty())
        properties.insert(QStringLiteral("shortcut"),
                          QVariant::fromValue(DBusMenuShortcut{{QStringLiteral("Control"), entry->key}}));
    if (entry->ticksWhenScoresHidden) {
        properties.insert(QStringLiteral("toggle-type"), QStringLiteral("checkmark"));
        properties.insert(QStringLiteral("toggle-state"), tray.scoresHidden() ? 1 : 0);
    }
    return properties;
}

// An empty list of names asks for every property.
QVariantMap itemProperties(const TrayItem &tray, int id, const QStringList &names)
{
    QVariantMap properties = itemProperties(tray, id);
    if (!names.isEmpty())
        properties.removeIf([&names](const auto &property) { return !names.contains(property.key()); });
    return properties;
}

} // namespace

DBusMenuExporter::DBusMenuExporter(TrayItem &tray, QObject *parent) : QObject(parent), m_tray(tray)
{
    registerTrayDBusTypes();
    // A new revision makes hosts fetch the menu again, with the check mark where it now is.
    connect(&tray, &TrayItem::scoresHiddenChanged, this, [this] { emit LayoutUpdated(++m_revision, 0); });
}

uint DBusMenuExporter::GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames,
                                 DBusMenuLayout &layout)
{
    if (!itemExists(parentId)) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("No menu item %1").arg(parentId));
        return 0;
    }
    layout = {parentId, itemProperties(m_tray, parentId, propertyNames), {}};
    // Only the root has children, and a depth of 0 asks for none.
    if (parentId == 0 && recursionDepth != 0) {
        for (const TrayMenuEntry &entry : trayMenuEntries())
            layout.children.append({entry.id, itemProperties(m_tray, entry.id, propertyNames), {}});
    }
    return m_revision;
}

QList<DBusMenuItemProperties> DBusMenuExporter::GetGroupProperties(const QList<int> &ids,
                                                                   const QStringList &propertyNames)
{
    QList<DBusMenuItemProperties> result;
    for (int id : ids) {
        if (itemExists(id))
            result.append({id, itemProperties(m_tray, id, propertyNames)});
    }
    return result;
}

QDBusVariant DBusMenuExporter::GetProperty(int id, const QString &name)
{
    const QVariantMap properties = itemExists(id) ? itemProperties(m_tray, id) : QVariantMap();
    if (!properties.contains(name)) {
        sendErrorReply(QDBusError::InvalidArgs,
                       QStringLiteral("No property %1 on menu item %2").arg(name).arg(id));
        return {};
    }
    return QDBusVariant(properties.value(name));
}

void DBusMenuExporter::Event(int id, const QString &eventId, const QDBusVariant &, uint)
{
    if (!handleEvent(id, eventId))
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("No menu item %1").arg(id));
}

QList<int> DBusMenuExporter::EventGroup(const QList<DBusMenuEvent> &events)
{
    QList<int> idErrors;
    for (const DBusMenuEvent &event : events) {
        if (!handleEvent(event.id, event.eventId))
            idErrors.append(event.id);
    }
    return idErrors;
}

QList<int> DBusMenuExporter::AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors)
{
    for (int id : ids) {
        if (!itemExists(id))
            idErrors.append(id);
    }
    return {};
}

bool DBusMenuExporter::handleEvent(int id, const QString &eventId)
{
    if (!itemExists(id))
        return false;
    // Hosts also report "hovered", "opened" and "closed"; only a click does anything.
    const TrayMenuEntry *entry = findTrayMenuEntry(id);
    if (eventId == QLatin1String("clicked") && entry && entry->action)
        runTrayAction(m_tray, *entry->action);
    return true;
}
