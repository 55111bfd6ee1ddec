// Modal dialog script: a 10 ms poll of the application's active modal window.
#include "support/modalscript.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QtTest>

ModalScript::ModalScript(QList<Step> steps, QList<QWidget*> ignored) : m_steps(std::move(steps))
{
    for (QWidget* w : ignored)
        m_ignored.append(w);
    m_timer.setInterval(10);
    connect(&m_timer, &QTimer::timeout, this, &ModalScript::poll);
    m_timer.start();
}

void ModalScript::poll()
{
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible())
        return;
    // A window already answered (or one under the test) is never acted on again: it
    // becomes the active modal window once more when a dialog it opened closes.
    for (const QPointer<QWidget>& known : m_ignored)
        if (known == modal)
            return;
    m_ignored.append(modal);
    // The action runs from its own event, not inside this poll, so that the poll keeps
    // running (and answers) while the action's own modal windows are up.
    QPointer<QWidget> target(modal);
    if (m_next < m_steps.size()) {
        const Step step = m_steps[m_next++];
        QTimer::singleShot(0, this, [step, target] {
            if (target)
                step(target);
        });
        return;
    }
    m_unexpected.append(describe(modal));
    QTimer::singleShot(0, this, [target] {
        if (!target)
            return;
        if (auto* box = qobject_cast<QMessageBox*>(target.data()); box && box->escapeButton())
            box->escapeButton()->click();
        else if (auto* dialog = qobject_cast<QDialog*>(target.data()))
            dialog->reject();
        else
            target->close();
    });
}

bool ModalScript::waitUntilDone(int timeoutMs) const
{
    QElapsedTimer clock;
    clock.start();
    while (m_next < m_steps.size()) {
        if (clock.elapsed() > timeoutMs)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QTest::qSleep(5);
    }
    return true;
}

QString ModalScript::describe(QWidget* modal)
{
    if (auto* box = qobject_cast<QMessageBox*>(modal))
        return box->windowTitle() + QStringLiteral(": ") + box->text();
    return modal->windowTitle();
}

ModalScript::Step ModalScript::clickButton(QMessageBox::StandardButton button, QString* seenText)
{
    return [button, seenText](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        if (seenText)
            *seenText = describe(modal);
        if (box && box->button(button))
            box->button(button)->click();
        else if (auto* dialog = qobject_cast<QDialog*>(modal))
            dialog->reject();
    };
}

ModalScript::Step ModalScript::chooseFile(const QString& path, QString* seenTitle)
{
    return [path, seenTitle](QWidget* modal) {
        if (seenTitle)
            *seenTitle = modal->windowTitle();
        if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
            // As the user does: the name typed into the file name box, then Save.
            if (auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
                edit->setText(path);
            else
                dialog->selectFile(path);
            static_cast<QDialog*>(dialog)->accept(); // QFileDialog::accept, as the Save button does
        } else if (auto* other = qobject_cast<QDialog*>(modal)) {
            other->reject();
        }
    };
}

ModalScript::Step ModalScript::cancel(QString* seenTitle)
{
    return [seenTitle](QWidget* modal) {
        if (seenTitle)
            *seenTitle = describe(modal);
        if (auto* dialog = qobject_cast<QDialog*>(modal))
            dialog->reject();
    };
}
