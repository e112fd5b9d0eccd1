#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

// The real program under an X server (CTest runs this test inside xvfb-run): it opens the panel on the
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
    // The glass is translucent: frost over whatever the compositor shows behind the window.
    const int glass = qAlpha(image.pixel(image.width() / 2, middle));
    QVERIFY2(glass > 120 && glass < 255, qPrintable(QString::number(glass)));
    // Round corners leave the very corner clear in both modes.
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(image.pixel(image.width() - 1, image.height() - 1)), 0);
    const int edge = qAlpha(image.pixel(1, middle));
    const int inside = qAlpha(image.pixel(30, middle));
    QCOMPARE(inside, glass);
    if (floating) {
        // No rim: the glass fades out over the outer 20 px.
        QVERIFY2(edge < glass / 3, qPrintable(QString::number(edge)));
        QVERIFY(qAlpha(image.pixel(8, middle)) > edge);
    } else {
        // The white rim runs along a solid edge.
        QVERIFY2(qAlpha(image.pixel(0, middle)) > glass,
                 qPrintable(QString::number(qAlpha(image.pixel(0, middle)))));
        QCOMPARE(edge, glass);
    }
}

QTEST_GUILESS_MAIN(SnapshotTest)
#include "SnapshotTest.moc"
