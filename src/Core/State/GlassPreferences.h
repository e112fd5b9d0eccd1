#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

class SettingsStore;

// The panel's glass as the user tunes it: blur, tint, grain, card opacity and the floating-cards style,
// with their stored keys and defaults. A write takes full effect even when the value is unchanged (stored,
// signalled, passed to the panel), so a reset always leaves the file and the panel at the defaults.
// The floating style is stored but never loaded: it lasts until the program quits.
class GlassPreferences : public QObject {
    Q_OBJECT
    Q_PROPERTY(double blur READ blur WRITE setBlur NOTIFY blurChanged)
    Q_PROPERTY(double tintHue READ tintHue WRITE setTintHue NOTIFY tintHueChanged)
    Q_PROPERTY(double tint READ tint WRITE setTint NOTIFY tintChanged)
    Q_PROPERTY(double grain READ grain WRITE setGrain NOTIFY grainChanged)
    Q_PROPERTY(double surfaceOpacity READ surfaceOpacity WRITE setSurfaceOpacity NOTIFY surfaceOpacityChanged)
    Q_PROPERTY(bool floatingCards READ floatingCards WRITE setFloatingCards NOTIFY floatingCardsChanged)

public:
    static constexpr double defaultBlur = 0.78;
    static constexpr double defaultTintHue = 0.58;
    static constexpr double defaultTint = 0.1;
    static constexpr double defaultGrain = 0.22;
    static constexpr double defaultSurfaceOpacity = 0.62;
    // A drag's writes reach the file at most this often.
    static constexpr std::chrono::milliseconds saveDelay{250};

    // Loads the stored glass and tints the inks with it. applyTint re-tints the panel's inks; the design
    // system lives outside the core, so the program hands it in.
    GlassPreferences(SettingsStore &settings, std::function<void(double hue, double strength)> applyTint,
                     QObject *parent = nullptr);
    ~GlassPreferences() override;

    double blur() const { return m_blur; }
    double tintHue() const { return m_tintHue; }
    double tint() const { return m_tint; }
    double grain() const { return m_grain; }
    double surfaceOpacity() const { return m_surfaceOpacity; }
    bool floatingCards() const { return m_floatingCards; }

    void setBlur(double value);
    void setTintHue(double value);
    void setTint(double value);
    void setGrain(double value);
    void setSurfaceOpacity(double value);
    void setFloatingCards(bool enabled);

    // Back to the defaults, written at once; the card style is left as it is.
    Q_INVOKABLE void resetDefaults();
    // A slider's drag wrote its values a few times a second; its end writes the last one now.
    Q_INVOKABLE void save();

    // Set by the panel's owner: called after a change to the panel window's own material. The cards read
    // surfaceOpacity themselves, so it does not call this.
    std::function<void()> onGlassChange;

signals:
    void blurChanged();
    void tintHueChanged();
    void tintChanged();
    void grainChanged();
    void surfaceOpacityChanged();
    void floatingCardsChanged();

private:
    void store(const QString &key, double value, bool callsGlassChange, bool retints);

    SettingsStore &m_settings;
    std::function<void(double hue, double strength)> m_applyTint;
    QTimer m_saveTimer;
    double m_blur = defaultBlur;
    double m_tintHue = defaultTintHue;
    double m_tint = defaultTint;
    double m_grain = defaultGrain;
    double m_surfaceOpacity = defaultSurfaceOpacity;
    bool m_floatingCards = false;
};
