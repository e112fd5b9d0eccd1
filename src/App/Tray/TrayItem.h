#pragma once

#include <QObject>
#include <QPoint>
#include <QString>
#include <QStringList>

// The program's item in the desktop's tray: an icon, or the live score as its label, and a small menu.
// The application wires the model's title into it and its requests to the panel and the model.
class TrayItem : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    // The live score; empty means the icon alone.
    virtual void setTitle(const QString &title) = 0;
    // What the tooltip shows under the title: one line per live match.
    virtual void setLiveMatches(const QStringList &lines) = 0;
    // Whether a live score is drawn into the icon; off keeps the plain icon.
    virtual void setScoreInIcon(bool drawn) = 0;
    // Whether the desktop's tray shows the title as text beside the icon.
    virtual bool hostShowsLabels() const { return false; }
    // Whether scores are hidden, which the menu's "Hide Scores" shows with a check mark.
    bool scoresHidden() const { return m_scoresHidden; }
    void setScoresHidden(bool hidden)
    {
        if (hidden == m_scoresHidden)
            return;
        m_scoresHidden = hidden;
        emit scoresHiddenChanged();
    }

signals:
    // A primary click (or "Open Pitchlark"): toggle the panel on the screen holding globalPosition,
    // or on the primary screen when the position is not known (a null point).
    void activated(const QPoint &globalPosition);
    void refreshRequested();
    void hideScoresToggled();
    void quitRequested();
    void scoresHiddenChanged();
    // Another tray host took over, or the last one went away.
    void hostChanged();

private:
    bool m_scoresHidden = false;
};
