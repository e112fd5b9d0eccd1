#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

// The theme as QML reads it: the five current inks, the fixed signal colours and the layout metrics.
// The inks change when the user re-tints the glass; reapply() tells the screens.
class ThemeSingleton : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Theme)
    QML_SINGLETON
    Q_PROPERTY(QColor primary READ primary NOTIFY inksChanged)
    Q_PROPERTY(QColor secondary READ secondary NOTIFY inksChanged)
    Q_PROPERTY(QColor tertiary READ tertiary NOTIFY inksChanged)
    Q_PROPERTY(QColor faint READ faint NOTIFY inksChanged)
    Q_PROPERTY(QColor accent READ accent NOTIFY inksChanged)
    Q_PROPERTY(QColor liveRed MEMBER m_liveRed CONSTANT)
    Q_PROPERTY(QColor qualGreen MEMBER m_qualGreen CONSTANT)
    Q_PROPERTY(QColor playoffAmber MEMBER m_playoffAmber CONSTANT)
    Q_PROPERTY(QColor cardStrokeTop MEMBER m_cardStrokeTop CONSTANT)
    Q_PROPERTY(QColor cardStrokeBottom MEMBER m_cardStrokeBottom CONSTANT)
    Q_PROPERTY(int cardRadius MEMBER m_cardRadius CONSTANT)
    Q_PROPERTY(int cardPadding MEMBER m_cardPadding CONSTANT)
    Q_PROPERTY(int gutter MEMBER m_gutter CONSTANT)
    Q_PROPERTY(int rowSpacing MEMBER m_rowSpacing CONSTANT)

public:
    static ThemeSingleton *instance();
    static ThemeSingleton *create(QQmlEngine *, QJSEngine *);

    // Re-tints the inks and tells every screen.
    void apply(double hue, double strength);

    QColor primary() const;
    QColor secondary() const;
    QColor tertiary() const;
    QColor faint() const;
    QColor accent() const;

signals:
    void inksChanged();

private:
    ThemeSingleton();

    QColor m_liveRed;
    QColor m_qualGreen;
    QColor m_playoffAmber;
    QColor m_cardStrokeTop;
    QColor m_cardStrokeBottom;
    int m_cardRadius;
    int m_cardPadding;
    int m_gutter;
    int m_rowSpacing;
};
