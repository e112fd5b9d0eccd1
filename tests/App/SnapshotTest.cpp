#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

// The real program under an X server (CTest runs this test under its own Xvfb): it opens the panel on the
// in-process replay, writes a snapshot of it and quits. The pictures are checked pixel by pixel.
class SnapshotTest : public QObject {
    Q_OBJECT

private slots:
    void snapshot_data();
    void snapshot();
};

void SnapshotTest::snapshot_data()
{
    QTest::addColumn<QStringList>("environment");
    QTest::addColumn<bool>("floating");

    QTest::newRow("framed glass") << QStringList() << false;
    QTest::newRow("floating cards") << QStringList{"TIDEWELL_FLOATING=1"} << true;
}

void SnapshotTest::snapshot()
{
    QFETCH(QStringList, environment);
    QFETCH(bool, floating);

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("panel.png"));
    QProcess program;
    program.setEnvironment(QProcess::systemEnvironment()
                           << QStringLiteral("TIDEWELL_SNAPSHOT=") + path << environment);
    program.start(QStringLiteral(PITCHLARK_BINARY), {QStringLiteral("--demo")});
    QVERIFY(program.waitForFinished(40'000));
    QVERIFY2(program.readAllStandardError().contains("Tidewell snapshot \xe2\x86\x92 " + path.toUtf8()),
             "the snapshot line was not logged");

    const QImage image(path);
    QVERIFY(!image.isNull());
    QCOMPARE(image.width(), 388);
    QCOMPARE(image.height(), 900 - 2 * 12); // the X server's screen, less the margins
    QVERIFY(image.hasAlphaChannel());
    const int middle = image.height() / 2;
    // Only glass lies in the gutter left of the cards: check the layers there.
    const auto alphaAt = [&image, middle](int x) { return qAlpha(image.pixel(x, middle)); };
    // Round corners leave the very corner clear in both modes.
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(image.pixel(image.width() - 1, image.height() - 1)), 0);
    if (floating) {
        // No rim: the glass fades out towards the edge.
        QVERIFY2(alphaAt(1) < alphaAt(12) / 3,
                 qPrintable(QStringLiteral("%1 %2").arg(alphaAt(1)).arg(alphaAt(12))));
    } else {
        // Translucent frost, with a white rim along its edge.
        const int glass = alphaAt(8);
        QVERIFY2(glass > 120 && glass < 255, qPrintable(QString::number(glass)));
        QCOMPARE(alphaAt(1), glass);
        QVERIFY2(alphaAt(0) > glass, qPrintable(QString::number(alphaAt(0))));
    }
}

QTEST_GUILESS_MAIN(SnapshotTest)
#include "SnapshotTest.moc"
