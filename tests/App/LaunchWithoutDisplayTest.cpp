#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

// The real program started as on a Wayland session whose XWayland is not running, and then with no
// display at all: the commands that need none work, and the tray app says why it cannot start instead
// of aborting inside Qt.
class LaunchWithoutDisplayTest : public QObject {
    Q_OBJECT

private slots:
    void commands_data();
    void commands();
};

void LaunchWithoutDisplayTest::commands_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("output");      // on stdout or stderr
    QTest::addColumn<QStringList>("setting"); // more of the environment, NAME=value

    // clang-format off
    QTest::newRow("toggle, nothing running") << QStringList{"--toggle"} << 1 << "Pitchlark is not running." << QStringList{};
    QTest::newRow("tray app") << QStringList{} << 1 << "no X11 or Wayland display answered" << QStringList{};
    // Qt's offscreen platform answers as X11 does, with no X connection behind it. Leaks are not checked,
    // as in the other tests that draw the panel: Qt Quick keeps memory past exit.
    QTest::newRow("panel, offscreen") << QStringList{"--demo"} << 0 << "snapshot"
        << QStringList{"QT_QPA_PLATFORM=offscreen", "TIDEWELL_SNAPSHOT=panel.png", "TIDEWELL_PINNED=1",
                       "ASAN_OPTIONS=detect_leaks=0"};
    // clang-format on
}

void LaunchWithoutDisplayTest::commands()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, output);

    QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(name));
    environment.insert(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("wayland"));
    // An empty runtime directory holds no compositor's default socket either.
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), home.filePath(QStringLiteral("cache")));
    environment.insert(QStringLiteral("WC_API_BASE_URL"), QStringLiteral("http://127.0.0.1:9"));
    QFETCH(QStringList, setting);
    for (const QString &variable : setting)
        environment.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));

    QProcess program;
    program.setWorkingDirectory(home.path());
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(PITCHLARK_BINARY), arguments);
    QVERIFY(program.waitForFinished(20'000));
    const QString said = QString::fromUtf8(program.readAllStandardOutput() + program.readAllStandardError());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QTEST(program.exitCode(), "exitCode");
    QVERIFY2(said.contains(output), qPrintable(said));
}

QTEST_GUILESS_MAIN(LaunchWithoutDisplayTest)
#include "LaunchWithoutDisplayTest.moc"
