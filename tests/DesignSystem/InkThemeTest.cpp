#include "InkTheme.h"

#include <QTest>

// The re-tinting rule: the accent always follows the hue, the text inks only above a small strength, and
// their saturation is capped so text stays readable on any glass.
class InkThemeTest : public QObject {
    Q_OBJECT

private slots:
    void apply_data();
    void apply();
};

namespace {

struct Hsb {
    double hue;
    double saturation;
    double brightness;
};

void compareInk(const QColor &ink, const Hsb &expected, const char *name)
{
    // QColor keeps 16 bits a channel, so compare to within that precision.
    constexpr double tolerance = 1e-3;
    const QColor hsv = ink.toHsv();
    QVERIFY2(qAbs(hsv.valueF() - expected.brightness) < tolerance, name);
    QVERIFY2(qAbs(hsv.hsvSaturationF() - expected.saturation) < tolerance, name);
    if (expected.saturation > 0)
        QVERIFY2(qAbs(hsv.hsvHueF() - expected.hue) < tolerance, name);
    QCOMPARE(ink.alphaF(), 1.0f);
}

} // namespace

void InkThemeTest::apply_data()
{
    QTest::addColumn<double>("hue");
    QTest::addColumn<double>("strength");
    QTest::addColumn<double>("saturation"); // of the primary ink; 0 means the neutral greys

    // clang-format off
    QTest::newRow("no tint") << 0.58 << 0.0 << 0.0;
    QTest::newRow("at the neutral limit") << 0.58 << 0.04 << 0.0;
    QTest::newRow("just above it") << 0.58 << 0.05 << 0.0575;
    QTest::newRow("half strength") << 0.3 << 0.5 << 0.575;
    QTest::newRow("capped") << 0.9 << 1.0 << 0.72;
    QTest::newRow("cap reached early") << 0.1 << 0.7 << 0.72;
    // clang-format on
}

void InkThemeTest::apply()
{
    QFETCH(double, hue);
    QFETCH(double, strength);
    QFETCH(double, saturation);

    InkTheme theme;
    theme.apply(0.2, 0.9); // a previous tint must not leak into the next one
    theme.apply(hue, strength);
    const InkPalette &ink = theme.palette();

    compareInk(ink.accent, {hue, 0.85, 0.66}, "accent");
    if (saturation == 0) {
        compareInk(ink.primary, {0, 0, 0.11}, "primary");
        compareInk(ink.secondary, {0, 0, 0.34}, "secondary");
        compareInk(ink.tertiary, {0, 0, 0.52}, "tertiary");
        compareInk(ink.faint, {0, 0, 0.66}, "faint");
        return;
    }
    compareInk(ink.primary, {hue, saturation, 0.17}, "primary");
    compareInk(ink.secondary, {hue, saturation * 0.72, 0.40}, "secondary");
    compareInk(ink.tertiary, {hue, saturation * 0.55, 0.54}, "tertiary");
    compareInk(ink.faint, {hue, saturation * 0.42, 0.66}, "faint");
}

QTEST_GUILESS_MAIN(InkThemeTest)
#include "InkThemeTest.moc"
