#include "Appcast.h"
#include "UpdateVersion.h"

#include <QTest>

namespace {

QByteArray rss(const QByteArray &items, const QByteArray &prefix = "sparkle")
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<rss version=\"2.0\" xmlns:" + prefix +
           "=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel><title>Pitchlark</title>" +
           items + "</channel></rss>";
}

QByteArray enclosureItem(const QByteArray &attributes)
{
    return "<item><title>Release</title><enclosure " + attributes +
           " type=\"application/octet-stream\"/></item>";
}

const QByteArray plain =
    "url=\"https://example.org/P.AppImage\" length=\"1000\" sparkle:edSignature=\"c2ln\"";

// One item as "version|display|length|signature".
QStringList describe(const Appcast &appcast)
{
    QStringList items;
    for (const AppcastItem &item : appcast.items)
        items << QStringLiteral("%1|%2|%3|%4")
                     .arg(item.versionString, item.displayVersionString, QString::number(item.length),
                          QString::fromLatin1(item.edSignature));
    return items;
}

} // namespace

class AppcastTest : public QObject {
    Q_OBJECT

private slots:
    void parse_data();
    void parse();
    void newestUpdate_data();
    void newestUpdate();
};

void AppcastTest::parse_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QStringList>("items");

    QTest::newRow("versions as item elements")
        << rss("<item><sparkle:version>13</sparkle:version>"
               "<sparkle:shortVersionString>1.3</sparkle:shortVersionString><enclosure " +
               plain + "/></item>")
        << QStringList{"13|1.3|1000|c2ln"};
    QTest::newRow("no display version")
        << rss(enclosureItem("sparkle:version=\"2.0.1\" " + plain)) << QStringList{"2.0.1|2.0.1|1000|c2ln"};
    QTest::newRow("another prefix for the namespace")
        << rss(enclosureItem("s:version=\"3\" url=\"https://e.org/a\" length=\"5\" s:edSignature=\"eA==\""),
               "s")
        << QStringList{"3|3|5|eA=="};
    QTest::newRow("only Linux enclosures")
        << rss(enclosureItem("sparkle:version=\"5\" sparkle:os=\"macos\" " + plain) +
               enclosureItem("sparkle:version=\"6\" sparkle:os=\"linux\" " + plain))
        << QStringList{"6|6|1000|c2ln"};
    // Versions that are not plain numbers, or too large for one, are as unusable as a missing length.
    QByteArray malformed;
    for (const char *version : {"", ".", "1..2", "1.2.", "1.2-beta", "+1", "v2", "1.18446744073709551616"})
        malformed += enclosureItem("sparkle:version=\"" + QByteArray(version) + "\" " + plain);
    QTest::newRow("unusable items are left out")
        << rss("<item><title>News only</title></item>" + malformed +
               enclosureItem("sparkle:version=\"7\" url=\"https://e.org/a\" sparkle:edSignature=\"c2ln\"") +
               enclosureItem("sparkle:version=\"7\" url=\"https://e.org/a\" length=\"-3\"") +
               enclosureItem("sparkle:version=\"7\" url=\"https://e.org/a\" length=\"lots\"") +
               enclosureItem("sparkle:version=\"7\" url=\"/relative/a\" length=\"3\"") +
               enclosureItem(plain) + enclosureItem("sparkle:version=\"8\" " + plain))
        << QStringList{"8|8|1000|c2ln"};
}

void AppcastTest::parse()
{
    QFETCH(QByteArray, xml);
    const auto appcast = Appcast::parse(xml);
    QVERIFY2(appcast.ok(), qPrintable(appcast.ok() ? QString() : appcast.error()));
    QTEST(describe(*appcast), "items");
}

// Versions compare as numbers, component by component.
void AppcastTest::newestUpdate_data()
{
    QTest::addColumn<QStringList>("versions"); // in the feed's order
    QTest::addColumn<QString>("newest");       // offered to 1.0; empty: none
    // clang-format off
    QTest::newRow("numbers, not text") << QStringList{"1.2", "1.10", "1.9"} << "1.10";
    QTest::newRow("major wins") << QStringList{"2", "1.99.99"} << "2";
    QTest::newRow("extra component") << QStringList{"1.2", "1.2.1"} << "1.2.1";
    QTest::newRow("largest component") << QStringList{"1.18446744073709551615", "1.18446744073709551614"} << "1.18446744073709551615";
    // clang-format on
}

void AppcastTest::newestUpdate()
{
    QFETCH(QStringList, versions);
    Appcast appcast;
    for (const QString &version : versions) {
        AppcastItem item;
        item.versionString = version;
        appcast.items << item;
    }
    const auto found = appcast.newestUpdate(*UpdateVersion::parse(QStringLiteral("1.0")));
    QTEST(found ? found->versionString : QString(), "newest");
}

QTEST_GUILESS_MAIN(AppcastTest)
#include "AppcastTest.moc"
