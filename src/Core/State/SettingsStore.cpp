#include "SettingsStore.h"

#include "Support/Logging.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <QStandardPaths>

SettingsStore::SettingsStore(QString filePath) : m_filePath(std::move(filePath))
{
    load();
}

QString SettingsStore::defaultFilePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/pitchlark/settings.json");
}

void SettingsStore::removeLeftoverTemporaryFiles() const
{
    // A write killed half-way leaves its QSaveFile temporary, "settings.json.XXXXXX". One younger than
    // a minute may belong to a write going on in another process right now.
    const QFileInfo settings(m_filePath);
    const QDir folder = settings.absoluteDir();
    const QDateTime settled = QDateTime::currentDateTimeUtc().addSecs(-60);
    for (const QFileInfo &entry : folder.entryInfoList({settings.fileName() + QStringLiteral(".??????")},
                                                       QDir::Files | QDir::Hidden)) {
        if (entry.lastModified().toUTC() < settled)
            QFile::remove(entry.absoluteFilePath());
    }
}

void SettingsStore::load()
{
    removeLeftoverTemporaryFiles();
    QFile file(m_filePath);
    if (!file.exists())
        return;
    QJsonParseError error{};
    const bool readable = file.size() <= maximumFileSize && file.open(QIODevice::ReadOnly);
    const QJsonDocument document =
        readable ? QJsonDocument::fromJson(file.readAll(), &error) : QJsonDocument();
    if (!readable || error.error != QJsonParseError::NoError || !document.isObject()) {
        qCWarning(lcSettings) << "cannot read" << m_filePath << "- using defaults";
        m_keepCorruptFile = true;
        return;
    }
    m_values = document.object();
}

std::optional<QString> SettingsStore::string(const QString &key) const
{
    const QJsonValue value = m_values.value(key);
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<QStringList> SettingsStore::stringList(const QString &key) const
{
    const QJsonValue value = m_values.value(key);
    if (!value.isArray())
        return std::nullopt;
    QStringList list;
    for (const QJsonValue &element : value.toArray()) {
        if (!element.isString())
            return std::nullopt;
        list.append(element.toString());
    }
    return list;
}

std::optional<bool> SettingsStore::boolean(const QString &key) const
{
    const QJsonValue value = m_values.value(key);
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<qint64> SettingsStore::integer(const QString &key) const
{
    const QJsonValue value = m_values.value(key);
    if (!value.isDouble())
        return std::nullopt;
    // toInteger() answers only for whole numbers within 64 bits; 0 otherwise, so check zero separately.
    const qint64 integral = value.toInteger();
    if (integral == 0 && value.toDouble() != 0)
        return std::nullopt;
    return integral;
}

std::optional<double> SettingsStore::real(const QString &key) const
{
    const QJsonValue value = m_values.value(key);
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

void SettingsStore::set(const QString &key, const QString &value)
{
    write(key, value);
}
void SettingsStore::set(const QString &key, const QStringList &value)
{
    write(key, QJsonArray::fromStringList(value));
}
void SettingsStore::set(const QString &key, bool value)
{
    write(key, value);
}
void SettingsStore::set(const QString &key, qint64 value)
{
    write(key, value);
}
void SettingsStore::set(const QString &key, double value)
{
    write(key, value);
}

void SettingsStore::setLater(const QString &key, double value)
{
    m_values.insert(key, value);
    m_hasKeptValues = true;
}

void SettingsStore::saveKept()
{
    if (m_hasKeptValues)
        save();
}

void SettingsStore::remove(const QString &key)
{
    m_values.remove(key);
    save();
}

void SettingsStore::write(const QString &key, const QJsonValue &value)
{
    m_values.insert(key, value);
    save();
}

void SettingsStore::save()
{
    QDir().mkpath(QFileInfo(m_filePath).absolutePath());
    if (m_keepCorruptFile) {
        const QString aside = m_filePath + QStringLiteral(".corrupt");
        QFile::remove(aside);
        if (QFile::exists(m_filePath) && !QFile::rename(m_filePath, aside)) {
            qCWarning(lcSettings) << "cannot move" << m_filePath << "aside; not overwriting it";
            return;
        }
        m_keepCorruptFile = false;
    }
    // Every write carries all values, kept ones included.
    m_hasKeptValues = false;
    QSaveFile file(m_filePath);
    const QByteArray bytes = QJsonDocument(m_values).toJson(QJsonDocument::Indented);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        qCWarning(lcSettings) << "cannot write" << m_filePath << file.errorString();
}
