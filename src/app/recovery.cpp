// Recovery after a run-time error: written by the error report's last steps, read back
// by the next main window after its preferences.
#include "app/recovery.h"

#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/conversions.h"
#include "components/errorreport.h"
#include "components/settings.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QSettings>
#include <QVariantMap>
#include <optional>

namespace Recovery {

namespace {

const QString group = QStringLiteral("Recuperation");
const struct {
    const char* key;
    int button;
} styleKeys[] = {
    {"Gras", tglyphora::BoldButton},
    {"Italique", tglyphora::ItalicButton},
    {"Souligne", tglyphora::UnderlineButton},
    {"Barre", tglyphora::StrikeButton},
};

// A stored number, or nullopt when the text is not one within low..high. The group
// is the program's own, but the file may have been edited: nothing here may fail.
std::optional<int> number(const QVariantMap& stored, const QString& key, int low, int high)
{
    const auto value = Conversions::parseNumber(stored.value(key).toString());
    if (!value || *value < low || *value > high)
        return std::nullopt;
    return static_cast<int>(*value);
}

void apply(tglyphora& window, const QVariantMap& store)
{
    if (const auto unit = number(store, QStringLiteral("unite"), 1, 7); unit && *unit != window.unite())
        window.munit_Click(*unit - 1);
    for (const auto& style : styleKeys) {
        const auto value = number(store, QString::fromLatin1(style.key), 0, 1);
        if (value && *value != window.ButtonValue(style.button)) {
            window.setButtonValue(style.button, *value);
            window.Toolbar1_ButtonClick(style.button); // applies the style as the button does
        }
    }
    if (const auto size = number(store, QStringLiteral("TaillePol"), 4, 120))
        window.Combo1->setCurrentIndex(*size - 4);
    if (store.contains(QStringLiteral("Texte1")))
        window.Text1->setText(store.value(QStringLiteral("Texte1")).toString());
    if (store.contains(QStringLiteral("Texte2")))
        window.Text2->setText(store.value(QStringLiteral("Texte2")).toString());
    window.Panel(1)->setText(QStringLiteral("Textes d'exemple récupérés après l'erreur précédente"));
}

} // namespace

bool pending()
{
    const QSettings store(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
    return store.childGroups().contains(group);
}

void save(const tglyphora& window)
{
    QSettings store(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
    store.beginGroup(group);
    store.setValue(QStringLiteral("Texte1"), window.Text1->text());
    store.setValue(QStringLiteral("Texte2"), window.Text2->text());
    store.setValue(QStringLiteral("unite"), QString::number(window.unite()));
    for (const auto& style : styleKeys)
        store.setValue(QString::fromLatin1(style.key), QString::number(window.ButtonValue(style.button)));
    store.setValue(QStringLiteral("TaillePol"), QString::number(Conversions::roundHalfEven(window.Text1->font().pointSizeF())));
    store.endGroup();
    store.sync();
}

void restoreAndWatch(tglyphora* window)
{
    if (pending()) {
        QSettings store(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
        QVariantMap stored;
        store.beginGroup(group);
        for (const QString& key : store.childKeys())
            stored.insert(key, store.value(key));
        store.endGroup();
        store.remove(group); // once only, even if giving it back fails
        store.sync();
        apply(*window, stored);
    }
    QPointer<tglyphora> watched(window);
    ErrorReport::setRecovery([watched] {
        if (watched)
            save(*watched);
    });
}

} // namespace Recovery
