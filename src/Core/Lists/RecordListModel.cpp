#include "RecordListModel.h"

#include <QMetaProperty>
#include <QSet>

namespace {

constexpr int keyRole = Qt::UserRole;
constexpr int recordRole = Qt::UserRole + 1;
// A record property's role is this plus the property's index.
constexpr int firstPropertyRole = Qt::UserRole + 2;

} // namespace

RecordListModel::RecordListModel(const QMetaObject &recordType, const QByteArray &recordRoleName,
                                 const QByteArray &keyProperty, QObject *parent)
    : QAbstractListModel(parent), m_recordType(recordType),
      m_keyProperty(recordType.indexOfProperty(keyProperty.constData()))
{
    Q_ASSERT(m_keyProperty >= 0);
    m_roleNames.insert(keyRole, QByteArrayLiteral("key"));
    m_roleNames.insert(recordRole, recordRoleName);
    for (int index = 0; index < recordType.propertyCount(); ++index) {
        const QByteArray name = recordType.property(index).name();
        // "id" cannot name a QML property; the key role carries it.
        if (name != "id")
            m_roleNames.insert(firstPropertyRole + index, name);
    }
}

int RecordListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant RecordListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    return roleValue(m_rows.at(index.row()), role);
}

QHash<int, QByteArray> RecordListModel::roleNames() const
{
    return m_roleNames;
}

QStringList RecordListModel::keys() const
{
    QStringList keys;
    keys.reserve(m_rows.size());
    for (const QVariant &row : m_rows)
        keys.append(keyOf(row));
    return keys;
}

QString RecordListModel::keyOf(const QVariant &row) const
{
    return m_recordType.property(m_keyProperty).readOnGadget(row.constData()).toString();
}

QVariant RecordListModel::roleValue(const QVariant &row, int role) const
{
    if (role == keyRole)
        return keyOf(row);
    if (role == recordRole)
        return row;
    const int property = role - firstPropertyRole;
    if (property < 0 || property >= m_recordType.propertyCount())
        return {};
    return m_recordType.property(property).readOnGadget(row.constData());
}

// Called for rows that differ, so the whole record is always among the changed roles.
QList<int> RecordListModel::changedRoles(const QVariant &before, const QVariant &after) const
{
    QList<int> roles;
    for (auto it = m_roleNames.cbegin(); it != m_roleNames.cend(); ++it) {
        if (it.key() != recordRole && roleValue(before, it.key()) != roleValue(after, it.key()))
            roles.append(it.key());
    }
    roles.append(recordRole);
    return roles;
}

void RecordListModel::replaceRows(const QVariantList &rows)
{
    const qsizetype before = m_rows.size();
    beginResetModel();
    m_rows = rows;
    endResetModel();
    if (m_rows.size() != before)
        emit countChanged();
    emit rowsChanged();
}

void RecordListModel::removeRowsMissingFrom(const QVariantList &rows)
{
    QSet<QString> kept;
    for (const QVariant &row : rows)
        kept.insert(keyOf(row));
    // From the end, a run of missing rows at a time, so that earlier indexes stay valid.
    for (int last = int(m_rows.size()) - 1; last >= 0; --last) {
        if (kept.contains(keyOf(m_rows.at(last))))
            continue;
        int first = last;
        while (first > 0 && !kept.contains(keyOf(m_rows.at(first - 1))))
            --first;
        beginRemoveRows({}, first, last);
        m_rows.remove(first, last - first + 1);
        endRemoveRows();
        last = first;
    }
}

void RecordListModel::updateRows(const QVariantList &rows)
{
    QSet<QString> keys;
    for (const QVariant &row : rows)
        keys.insert(keyOf(row));
    // Rows are told apart by key; a list that repeats one cannot be diffed, so it starts afresh.
    if (keys.size() != rows.size()) {
        replaceRows(rows);
        return;
    }
    if (rows == m_rows)
        return;
    const qsizetype before = m_rows.size();
    removeRowsMissingFrom(rows);
    QStringList currentKeys = this->keys();
    for (int target = 0; target < rows.size(); ++target) {
        const QString key = keyOf(rows.at(target));
        const qsizetype current = currentKeys.indexOf(key, target);
        if (current < 0) {
            beginInsertRows({}, target, target);
            m_rows.insert(target, rows.at(target));
            currentKeys.insert(target, key);
            endInsertRows();
            continue;
        }
        if (current != target) {
            beginMoveRows({}, int(current), int(current), {}, target);
            m_rows.move(current, target);
            currentKeys.move(current, target);
            endMoveRows();
        }
        if (m_rows.at(target) == rows.at(target))
            continue;
        const QList<int> roles = changedRoles(m_rows.at(target), rows.at(target));
        m_rows[target] = rows.at(target);
        emit dataChanged(index(target), index(target), roles);
    }
    if (m_rows.size() != before)
        emit countChanged();
    emit rowsChanged();
}
