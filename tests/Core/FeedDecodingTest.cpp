#include "Models/APIResponses.h"

#include <QRegularExpression>
#include <QTest>

// Decoding must never lose a record over a badly typed scalar, and must fail only on a body of the wrong
// shape: the live service changes types between strings, numbers and booleans without notice.
class FeedDecodingTest : public QObject {
    Q_OBJECT

private slots:
    void lossyText_data();
    void lossyText();
    void envelopeShapes_data();
    void envelopeShapes();
    void defaultsAndMixedScalarTypes();
    void missingIdentityIsFreshEachTime();
    void stadiumCapacity_data();
    void stadiumCapacity();
    void groupKeyAndTable_data();
    void groupKeyAndTable();
};

void FeedDecodingTest::lossyText_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QVariant>("expected"); // null QVariant: no text

    // clang-format off
    QTest::newRow("empty string is present") << QByteArray(R"("")") << QVariant(QString(""));
    QTest::newRow("integer") << QByteArray("3") << QVariant(QStringLiteral("3"));
    QTest::newRow("integral double") << QByteArray("2.0") << QVariant(QStringLiteral("2"));
    QTest::newRow("zero") << QByteArray("0") << QVariant(QStringLiteral("0"));
    QTest::newRow("negative zero") << QByteArray("-0.0") << QVariant(QStringLiteral("0"));
    QTest::newRow("shortest round trip") << QByteArray("0.1") << QVariant(QStringLiteral("0.1"));
    QTest::newRow("beyond 64 bits") << QByteArray("1e20") << QVariant(QStringLiteral("1e+20"));
    QTest::newRow("exact 64-bit integer")
        << QByteArray("9007199254740993") << QVariant(QStringLiteral("9007199254740993"));
    QTest::newRow("false") << QByteArray("false") << QVariant(QStringLiteral("false"));
    QTest::newRow("null") << QByteArray("null") << QVariant();
    QTest::newRow("array") << QByteArray("[1]") << QVariant();
    // clang-format on
}

void FeedDecodingTest::lossyText()
{
    QFETCH(QByteArray, json);
    QFETCH(QVariant, expected);

    const QJsonObject object = QJsonDocument::fromJson(R"({"key":)" + json + "}").object();
    const auto text = FeedDecoding::lossyString(object, QLatin1StringView("key"));
    QCOMPARE(text.has_value(), expected.isValid());
    if (text)
        QCOMPARE(*text, expected.toString());
    QVERIFY(!FeedDecoding::lossyString(object, QLatin1StringView("absent")));
}

void FeedDecodingTest::envelopeShapes_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("expectedCount"); // -1: the decode fails

    // clang-format off
    QTest::newRow("envelope") << QByteArray(R"({"games":[{"id":"1"},{"id":"2"}]})") << 2;
    QTest::newRow("empty envelope") << QByteArray(R"({"games":[]})") << 0;
    QTest::newRow("extra keys") << QByteArray(R"({"ok":true,"games":[{"id":"1","_id":"x"}]})") << 1;
    QTest::newRow("bare array") << QByteArray(R"([{"id":"1"}])") << 1;
    QTest::newRow("envelope null") << QByteArray(R"({"games":null})") << -1;
    QTest::newRow("envelope key missing") << QByteArray(R"({"teams":[]})") << -1;
    QTest::newRow("non-object element in envelope") << QByteArray(R"({"games":[{"id":"1"},2]})") << -1;
    QTest::newRow("non-object element in bare array") << QByteArray(R"([{"id":"1"},"x"])") << -1;
    QTest::newRow("truncated") << QByteArray(R"({"games":[{"id":"1"},)") << -1;
    QTest::newRow("empty body") << QByteArray() << -1;
    // clang-format on
}

void FeedDecodingTest::envelopeShapes()
{
    QFETCH(QByteArray, body);
    QFETCH(int, expectedCount);

    const auto decoded = APIGamesResponse::decode(body);
    QCOMPARE(decoded.ok(), expectedCount >= 0);
    if (decoded)
        QCOMPARE(decoded->games.size(), expectedCount);
    else
        QVERIFY(!decoded.error().message.isEmpty());
}

void FeedDecodingTest::defaultsAndMixedScalarTypes()
{
    const auto decoded =
        APIGamesResponse::decode(R"([{}, {"id":7,"home_score":2,"finished":true,"away_score":null,)"
                                 R"("home_team_label":"","group":["A"]}])");
    QVERIFY(decoded);
    // An empty record is kept, and its defaults read as an unplayed game between unknown teams.
    const APIGame &bare = decoded->games.constFirst();
    QCOMPARE(bare.homeTeamID, QStringLiteral("0"));
    QCOMPARE(bare.homeScorers, QStringLiteral("null"));
    QCOMPARE(bare.timeElapsed, QStringLiteral("notstarted"));
    QVERIFY(!bare.homeTeamNameEn && !bare.homeTeamLabel);

    const APIGame &game = decoded->games.constLast();
    QCOMPARE(game.id, QStringLiteral("7"));
    QCOMPARE(game.homeScore, QStringLiteral("2"));
    QCOMPARE(game.finished, QStringLiteral("true"));
    QCOMPARE(game.awayScore, QStringLiteral("0"));
    QCOMPARE(game.homeTeamLabel, std::optional<QString>(QString("")));
    QCOMPARE(game.group, QString());
}

void FeedDecodingTest::missingIdentityIsFreshEachTime()
{
    const QByteArray body = R"({"teams":[{"name_en":"Mexico"}]})";
    const QString first = APITeamsResponse::decode(body)->teams.constFirst().id;
    const QString second = APITeamsResponse::decode(body)->teams.constFirst().id;
    QVERIFY(first != second);
    static const QRegularExpression canonicalUpperCaseUuid(
        QStringLiteral("^[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}$"));
    QVERIFY2(canonicalUpperCaseUuid.match(first).hasMatch(), qPrintable(first));
}

void FeedDecodingTest::stadiumCapacity_data()
{
    QTest::addColumn<QByteArray>("capacity");
    QTest::addColumn<QVariant>("expected"); // null QVariant: no capacity

    // clang-format off
    QTest::newRow("number") << QByteArray("48000") << QVariant(qint64(48000));
    QTest::newRow("text") << QByteArray(R"("65000")") << QVariant(qint64(65000));
    QTest::newRow("signed text") << QByteArray(R"("+12")") << QVariant(qint64(12));
    QTest::newRow("negative text") << QByteArray(R"("-5")") << QVariant(qint64(-5));
    QTest::newRow("grouping comma") << QByteArray(R"("65,000")") << QVariant();
    QTest::newRow("fraction") << QByteArray("65000.5") << QVariant();
    QTest::newRow("padded") << QByteArray(R"(" 65000")") << QVariant();
    QTest::newRow("empty") << QByteArray(R"("")") << QVariant();
    QTest::newRow("sign only") << QByteArray(R"("-")") << QVariant();
    QTest::newRow("largest") << QByteArray(R"("9223372036854775807")")
                             << QVariant(std::numeric_limits<qint64>::max());
    QTest::newRow("smallest") << QByteArray(R"("-9223372036854775808")")
                              << QVariant(std::numeric_limits<qint64>::min());
    QTest::newRow("overflow") << QByteArray(R"("9223372036854775808")") << QVariant();
    QTest::newRow("Arabic-Indic digits") << QByteArray(R"("٤٥")") << QVariant();
    // clang-format on
}

void FeedDecodingTest::stadiumCapacity()
{
    QFETCH(QByteArray, capacity);
    QFETCH(QVariant, expected);

    const auto decoded =
        APIStadiumsResponse::decode(R"({"stadiums":[{"id":"1","capacity":)" + capacity + "}]}");
    QVERIFY(decoded);
    const APIStadium &stadium = decoded->stadiums.constFirst();
    QCOMPARE(stadium.capacityValue(), expected);
    QCOMPARE(stadium.nameEn, QStringLiteral("Venue TBD"));
}

void FeedDecodingTest::groupKeyAndTable_data()
{
    QTest::addColumn<QByteArray>("group");
    QTest::addColumn<QString>("expectedLetter");
    QTest::addColumn<int>("expectedRows");

    const QByteArray row = R"({"team_id":"1","pts":3})";
    // clang-format off
    QTest::newRow("live service key") << QByteArray(R"({"name":"A","teams":[)" + row + "]}") << "A" << 1;
    QTest::newRow("seed key wins") << QByteArray(R"({"group":"B","name":"A"})") << "B" << 0;
    QTest::newRow("numeric key") << QByteArray(R"({"group":3})") << "3" << 0;
    QTest::newRow("no key") << QByteArray(R"({"teams":[]})") << "" << 0;
    QTest::newRow("one bad row empties the table")
        << QByteArray(R"({"group":"C","teams":[)" + row + ",5]}") << "C" << 0;
    QTest::newRow("teams null") << QByteArray(R"({"group":"D","teams":null})") << "D" << 0;
    QTest::newRow("teams object") << QByteArray(R"({"group":"E","teams":{"team_id":"1"}})") << "E" << 0;
    // clang-format on
}

void FeedDecodingTest::groupKeyAndTable()
{
    QFETCH(QByteArray, group);
    QFETCH(QString, expectedLetter);
    QFETCH(int, expectedRows);

    const auto decoded = APIGroupsResponse::decode(R"({"groups":[)" + group + "]}");
    QVERIFY(decoded);
    const APIGroup &decodedGroup = decoded->groups.constFirst();
    QCOMPARE(decodedGroup.group, expectedLetter);
    QCOMPARE(decodedGroup.teams.size(), expectedRows);
    if (expectedRows > 0) {
        const APIStandingTeam &first = decodedGroup.teams.constFirst();
        QCOMPARE(first.points, QStringLiteral("3"));
        QCOMPARE(first.played, QStringLiteral("0"));
        QCOMPARE(first.goalDifference, QStringLiteral("0"));
    }
}

QTEST_GUILESS_MAIN(FeedDecodingTest)
#include "FeedDecodingTest.moc"
