#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>

// The user's settings as a small typed key-value store in ~/.config/pitchlark/settings.json. JSON keeps
// text, integers, reals, Booleans and lists apart, so a value of the wrong type reads as absent. Every
// write replaces the file atomically; a file that cannot be read gives defaults and is kept aside as
// settings.json.corrupt at the next write rather than lost.
class SettingsStore {
public:
    // Real settings are well under a kilobyte; a file larger than this is not read at all.
    static constexpr qint64 maximumFileSize = 1024 * 1024;

    explicit SettingsStore(QString filePath = defaultFilePath());

    static QString defaultFilePath();
    const QString &filePath() const { return m_filePath; }

    std::optional<QString> string(const QString &key) const;
    std::optional<QStringList> stringList(const QString &key) const;
    std::optional<bool> boolean(const QString &key) const;
    std::optional<qint64> integer(const QString &key) const;
    std::optional<double> real(const QString &key) const;

    void set(const QString &key, const QString &value);
    void set(const QString &key, const QStringList &value);
    void set(const QString &key, bool value);
    void set(const QString &key, qint64 value);
    void set(const QString &key, double value);
    // Keeps value for the next write rather than writing now, for values that change many times a
    // second; saveKept() writes it.
    void setLater(const QString &key, double value);
    void saveKept();
    void remove(const QString &key);

private:
    void load();
    void removeLeftoverTemporaryFiles() const;
    void write(const QString &key, const QJsonValue &value);
    void save();

    QString m_filePath;
    QJsonObject m_values;
    bool m_keepCorruptFile = false;
    bool m_hasKeptValues = false;
};
