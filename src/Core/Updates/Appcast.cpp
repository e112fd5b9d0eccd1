#include "Appcast.h"

#include <QXmlStreamReader>

namespace {

struct ItemFields {
    std::optional<QXmlStreamAttributes> enclosure;
    // Newer feeds write the versions as elements of the item rather than attributes of the enclosure.
    QString version;
    QString shortVersion;
};

bool isSparkle(const QXmlStreamReader &reader, QLatin1StringView name)
{
    return reader.namespaceUri() == Appcast::sparkleNamespace && reader.name() == name;
}

bool isRss(const QXmlStreamReader &reader, QLatin1StringView name)
{
    return reader.namespaceUri().isEmpty() && reader.name() == name;
}

ItemFields readItemFields(QXmlStreamReader &reader)
{
    ItemFields fields;
    while (reader.readNextStartElement()) {
        if (isRss(reader, QLatin1StringView("enclosure"))) {
            fields.enclosure = reader.attributes();
            reader.skipCurrentElement();
        } else if (isSparkle(reader, QLatin1StringView("version"))) {
            fields.version = reader.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        } else if (isSparkle(reader, QLatin1StringView("shortVersionString"))) {
            fields.shortVersion = reader.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        } else {
            reader.skipCurrentElement();
        }
    }
    return fields;
}

QString firstNonEmpty(std::initializer_list<QString> texts)
{
    for (const QString &text : texts) {
        if (!text.isEmpty())
            return text;
    }
    return QString();
}

std::optional<AppcastItem> makeItem(const ItemFields &fields)
{
    if (!fields.enclosure)
        return std::nullopt;
    const QXmlStreamAttributes &enclosure = *fields.enclosure;
    const auto sparkle = [&](const char *name) {
        return enclosure.value(Appcast::sparkleNamespace, QLatin1StringView(name)).trimmed().toString();
    };
    // Feeds shared between platforms mark each enclosure with its system.
    const QString os = sparkle("os");
    if (!os.isEmpty() && os != u"linux")
        return std::nullopt;

    AppcastItem item;
    item.versionString = firstNonEmpty({sparkle("version"), fields.version});
    if (!UpdateVersion::parse(item.versionString))
        return std::nullopt;
    item.displayVersionString =
        firstNonEmpty({sparkle("shortVersionString"), fields.shortVersion, item.versionString});
    item.url = QUrl(enclosure.value(QLatin1StringView("url")).trimmed().toString(), QUrl::StrictMode);
    if (!item.url.isValid() || item.url.isRelative())
        return std::nullopt;
    bool numeric = false;
    item.length = enclosure.value(QLatin1StringView("length")).trimmed().toLongLong(&numeric);
    // Without a size the download could not be bounded.
    if (!numeric || item.length <= 0)
        return std::nullopt;
    item.edSignature = sparkle("edSignature").toLatin1();
    return item;
}

} // namespace

Result<Appcast, QString> Appcast::parse(const QByteArray &xml)
{
    QXmlStreamReader reader(xml);
    if (!reader.readNextStartElement() || !isRss(reader, QLatin1StringView("rss")))
        return Result<Appcast, QString>::failure(
            reader.hasError() ? reader.errorString() : QStringLiteral("The document is not an RSS feed."));

    Appcast appcast;
    while (reader.readNextStartElement()) {
        if (!isRss(reader, QLatin1StringView("channel"))) {
            reader.skipCurrentElement();
            continue;
        }
        while (reader.readNextStartElement()) {
            if (!isRss(reader, QLatin1StringView("item"))) {
                reader.skipCurrentElement();
                continue;
            }
            if (auto item = makeItem(readItemFields(reader)))
                appcast.items.append(std::move(*item));
        }
    }
    if (reader.hasError())
        return Result<Appcast, QString>::failure(reader.errorString());
    return appcast;
}

std::optional<AppcastItem> Appcast::newestUpdate(const UpdateVersion &current) const
{
    std::optional<AppcastItem> newest;
    std::optional<UpdateVersion> newestVersion;
    for (const AppcastItem &item : items) {
        const auto version = UpdateVersion::parse(item.versionString);
        if (version && *version > current && (!newestVersion || *version > *newestVersion)) {
            newest = item;
            newestVersion = version;
        }
    }
    return newest;
}
