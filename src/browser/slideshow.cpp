// Slideshow: every tick selects the next font of the list, until its end or Esc.
#include "app/tglyphora.h"

#include "browser/fontlistfilter.h"
#include "components/conversions.h"
#include "components/errorreport.h"
#include "components/runtimeerror.h"

#include <QInputDialog>
#include <QTimer>
#include <QTreeWidget>

void tglyphora::mvisboucle_Click()
{
    Timer1->stop();
    QInputDialog box(this);
    box.setObjectName(QStringLiteral("InputBox"));
    box.setWindowTitle(QStringLiteral("Temps d'attente"));
    box.setLabelText(QStringLiteral("Entrez le nombre de secondes à attendre entre chaque police\r\n\r\n"
                                    "Note : pour arrêter la visualisation, appuyez sur la touche Esc de votre clavier"));
    box.setInputMode(QInputDialog::TextInput);
    box.setTextValue(QStringLiteral("1"));
    const QString answer = box.exec() == QDialog::Accepted ? box.textValue() : QString();

    // Cancel and an empty answer read as 0: the previous interval stays, the show starts.
    const double seconds = Conversions::leadingNumber(answer);
    if (seconds != 0) {
        const double interval = Conversions::roundHalfEven(seconds * 1000.0);
        if (interval < 0 || interval > 65535) {
            const ErrorReport::Doing starting(QStringLiteral("Visualisation en boucle avec « ") + answer
                                              + QStringLiteral(" » secondes d'attente"));
            throw RuntimeError(380, QStringLiteral("Timer1"), QStringLiteral("Valeur de propriété incorrecte"))
                .setReason(QStringLiteral("l'attente doit être comprise entre 0 et 65,535 secondes"));
        }
        Timer1->setInterval(static_cast<int>(interval));
    }
    m_slidePosition = 0;
    Timer1->start();
}

void tglyphora::Timer1_Timer()
{
    ++m_slidePosition;
    // Greater-or-equal: the last font of the list is never shown. The show goes through
    // the rows a filter leaves visible (all of them without one).
    if (m_slidePosition >= m_filtre->visibleCount()) {
        Timer1->stop();
        return;
    }
    QTreeWidgetItem* item = m_filtre->visibleItem(m_slidePosition);
    const bool autoScroll = List1->hasAutoScroll();
    List1->setAutoScroll(false); // the list is not scrolled to the item
    List1->setCurrentItem(item);
    List1->setAutoScroll(autoScroll);
    List1_Click();
}
