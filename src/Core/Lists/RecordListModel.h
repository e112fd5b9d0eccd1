#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QMetaObject>
#include <QVariant>

// A list the screens show, one row per record (a Q_GADGET) keyed by its id. Its roles are the record's
// properties, "key" for the id and one role that carries the whole record. Updating moves, inserts and
// removes rows and reports only the roles that changed, so a view keeps its delegates across polls;
// replacing resets the list, for a change of what the list is about (another day, another team).
class RecordListModel : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    RecordListModel(const QMetaObject &recordType, const QByteArray &recordRole,
                    const QByteArray &keyProperty = QByteArrayLiteral("id"), QObject *parent = nullptr);

    int count() const { return int(m_rows.size()); }
    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    const QVariantList &rows() const { return m_rows; }
    QStringList keys() const;

signals:
    void countChanged();
    // Any row was inserted, removed, moved or changed.
    void rowsChanged();

protected:
    void updateRows(const QVariantList &rows);
    void replaceRows(const QVariantList &rows);

private:
    QString keyOf(const QVariant &row) const;
    QVariant roleValue(const QVariant &row, int role) const;
    QList<int> changedRoles(const QVariant &before, const QVariant &after) const;
    void removeRowsMissingFrom(const QVariantList &rows);

    const QMetaObject &m_recordType;
    const int m_keyProperty;
    QHash<int, QByteArray> m_roleNames;
    QVariantList m_rows;
};

// The typed face of a RecordListModel for the code that feeds it. A list that QML creates derives from
// RecordListModel itself (Qt's type tools cannot follow a template base) and uses the typed helpers.
template<typename Record>
QVariantList recordVariants(const QList<Record> &records)
{
    QVariantList rows;
    rows.reserve(records.size());
    for (const Record &record : records)
        rows.append(QVariant::fromValue(record));
    return rows;
}

template<typename Record>
QList<Record> recordsOf(const QVariantList &rows)
{
    QList<Record> all;
    all.reserve(rows.size());
    for (const QVariant &row : rows)
        all.append(row.template value<Record>());
    return all;
}

template<typename Record>
class RecordList : public RecordListModel {
public:
    explicit RecordList(const QByteArray &recordRole, const QByteArray &keyProperty = QByteArrayLiteral("id"),
                        QObject *parent = nullptr)
        : RecordListModel(Record::staticMetaObject, recordRole, keyProperty, parent)
    {}

    void update(const QList<Record> &records) { updateRows(recordVariants(records)); }
    void replace(const QList<Record> &records) { replaceRows(recordVariants(records)); }
    Record at(int row) const { return rows().at(row).template value<Record>(); }
    QList<Record> records() const { return recordsOf<Record>(rows()); }
};
