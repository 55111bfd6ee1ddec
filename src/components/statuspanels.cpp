// The status bar's panels and the clock of the date and time panels.
#include "components/statuspanels.h"

#include "components/elidedlabel.h"

#include <QDateTime>
#include <QLocale>
#include <QStatusBar>
#include <QTimer>

namespace StatusPanels {

QList<QLabel*> build(QStatusBar* bar, const QStringList& hoverTexts)
{
    const int widths[7] = {0, 90, 90, 60, 60, 80, 55};
    QList<QLabel*> panels;
    for (int n = 1; n <= 7; ++n) {
        auto* panel = new ElidedLabel(bar);
        panel->setObjectName(QStringLiteral("Panel%1").arg(n));
        panel->setToolTip(hoverTexts.value(n - 1));
        panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        panel->setContentsMargins(4, 0, 4, 0);
        if (n == 1) {
            // The font's name is what a narrow window keeps longest.
            panel->setPreferredWidth(120);
            panel->setMinimumWidth(100);
            bar->addWidget(panel, 1);
        } else {
            panel->setPreferredWidth(widths[n - 1]);
            panel->setAlignment(n >= 6 ? Qt::AlignCenter : (Qt::AlignRight | Qt::AlignVCenter));
            bar->addPermanentWidget(panel);
        }
        panels.append(panel);
    }
    QLabel* date = panels[5];
    QLabel* time = panels[6];
    auto updateClock = [date, time] {
        const QDateTime now = QDateTime::currentDateTime();
        const QLocale locale;
        date->setText(locale.toString(now.date(), QLocale::ShortFormat));
        time->setText(locale.toString(now.time(), QLocale::ShortFormat));
    };
    updateClock();
    auto* clock = new QTimer(bar);
    clock->setInterval(1000);
    QObject::connect(clock, &QTimer::timeout, bar, updateClock);
    clock->start();
    return panels;
}

} // namespace StatusPanels
