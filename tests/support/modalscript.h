// Scripted answers to a chain of modal dialogs: each step acts on the next modal window
// that appears; a modal window beyond the script is recorded as unexpected and closed.
#pragma once

#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <functional>

class ModalScript : public QObject {
public:
    using Step = std::function<void(QWidget*)>;
    // Windows in `ignored` (for instance a dialog already running modally under the
    // test) are never acted on.
    explicit ModalScript(QList<Step> steps = {}, QList<QWidget*> ignored = {});

    // Number of steps that ran.
    int stepsRun() const { return m_next; }
    // "title: text" of every modal window that came after the last step.
    QStringList unexpected() const { return m_unexpected; }
    // Waits, processing events, until every step ran.
    bool waitUntilDone(int timeoutMs = 10000) const;

    // Common steps.
    static Step clickButton(QMessageBox::StandardButton button, QString* seenText = nullptr);
    static Step chooseFile(const QString& path, QString* seenTitle = nullptr);
    static Step cancel(QString* seenTitle = nullptr);

    // What a modal window shows: its title, and a message box's text.
    static QString describe(QWidget* modal);

private:
    void poll();

    QList<Step> m_steps;
    QList<QPointer<QWidget>> m_ignored; // given ones, then every window met
    QStringList m_unexpected;
    QTimer m_timer;
    int m_next = 0;
};
