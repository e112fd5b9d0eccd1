#pragma once

#include <QMetaType>
#include <QObject>
#include <QString>

// Where the update flow stands, with the one payload its case carries. The toast, the modal and the
// settings screen read it through UpdateController; QML sees kind, version, progress and message.
class UpdatePhase {
    Q_GADGET
    Q_PROPERTY(Kind kind READ kind CONSTANT)
    Q_PROPERTY(QString version READ version CONSTANT)
    Q_PROPERTY(double progress READ progress CONSTANT)
    Q_PROPERTY(QString message READ message CONSTANT)
    // The case's name ("idle", "available", ...), which QML compares against.
    Q_PROPERTY(QString kindName READ kindName CONSTANT)

public:
    enum class Kind { idle, checking, available, downloading, readyToRelaunch, installing, upToDate, error };
    Q_ENUM(Kind)

    // A downloading progress that cannot be known yet.
    static constexpr double indeterminate = -1.0;

    UpdatePhase() = default;
    static UpdatePhase idle() { return UpdatePhase(Kind::idle); }
    static UpdatePhase checking() { return UpdatePhase(Kind::checking); }
    static UpdatePhase available(const QString &version);
    // progress is 0...1, or indeterminate.
    static UpdatePhase downloading(double progress);
    static UpdatePhase readyToRelaunch() { return UpdatePhase(Kind::readyToRelaunch); }
    static UpdatePhase installing() { return UpdatePhase(Kind::installing); }
    static UpdatePhase upToDate() { return UpdatePhase(Kind::upToDate); }
    static UpdatePhase error(const QString &message);

    Kind kind() const { return m_kind; }
    QString kindName() const;
    // The offered update's display version; empty outside available.
    QString version() const { return m_kind == Kind::available ? m_text : QString(); }
    // Download progress; 0 outside downloading.
    double progress() const { return m_progress; }
    // The error's description; empty outside error.
    QString message() const { return m_kind == Kind::error ? m_text : QString(); }

    friend bool operator==(const UpdatePhase &, const UpdatePhase &) = default;

private:
    explicit UpdatePhase(Kind kind, QString text = {}, double progress = 0.0)
        : m_kind(kind), m_text(std::move(text)), m_progress(progress)
    {}

    Kind m_kind = Kind::idle;
    QString m_text;
    double m_progress = 0.0;
};

Q_DECLARE_METATYPE(UpdatePhase)
