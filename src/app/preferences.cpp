// Preferences: the look of the samples saved on request and restored at start.
#include "app/tglyphora.h"

#include "browser/samplebox.h"
#include "components/colorvalue.h"
#include "components/conversions.h"
#include "components/errorreport.h"
#include "components/msgbox.h"
#include "components/runtimeerror.h"
#include "components/settings.h"

#include <QColor>
#include <QComboBox>

namespace {

const QString app = QStringLiteral("Glyphora");
const QString param = QStringLiteral("Param");

QString read(const QString& key, const QString& def)
{
    return Settings::GetSetting(app, param, key, def);
}

int16_t readInt16(const QString& key, int16_t def)
{
    return Settings::GetInt16(param, key, def);
}

void write(const QString& key, const QString& value)
{
    Settings::SaveSetting(app, param, key, value);
}

// "TaillePol", which must also select one of the size box's entries (from 4: entry
// size - 4); -1 selects none. One error scope says both.
int storedSize(int entries)
{
    const QString text = read(QStringLiteral("TaillePol"), QStringLiteral("15"));
    const auto scope = ErrorReport::Doing::setting(param, QStringLiteral("TaillePol"), text,
                                                   QStringLiteral("n'est pas un nombre"),
                                                   QStringLiteral("n'est pas une taille de 4 à 120"));
    const int size = Conversions::toInt16(text);
    if (size - 4 < -1 || size - 4 >= entries)
        throw RuntimeError(380, QStringLiteral("Combo1"), QStringLiteral("Valeur de propriété incorrecte"));
    return size;
}

} // namespace

void tglyphora::msavepref_Click()
{
    write(QStringLiteral("pref"), Conversions::boolText(true));
    write(QStringLiteral("Gras"), QString::number(ButtonValue(BoldButton)));
    write(QStringLiteral("Italique"), QString::number(ButtonValue(ItalicButton)));
    write(QStringLiteral("Barre"), QString::number(ButtonValue(StrikeButton)));
    write(QStringLiteral("Souligne"), QString::number(ButtonValue(UnderlineButton)));
    write(QStringLiteral("CoulTxt"), QString::number(ColorValue::fromColor(Text1->ForeColor())));
    write(QStringLiteral("CoulFond"), QString::number(ColorValue::fromColor(Text1->BackColor())));
    write(QStringLiteral("TaillePol"), QString::number(Conversions::roundHalfEven(Text1->font().pointSizeF())));
    write(QStringLiteral("Texte1"), Text1->text());
    write(QStringLiteral("Texte2"), Text2->text());
    if (ButtonValue(8) == 1)
        write(QStringLiteral("Align"), QStringLiteral("0"));
    if (ButtonValue(9) == 1)
        write(QStringLiteral("Align"), QStringLiteral("1"));
    if (ButtonValue(10) == 1)
        write(QStringLiteral("Align"), QStringLiteral("2"));

    MsgBox::Inform(this, QStringLiteral("Tous les paramètres tels que la taille de la police, sa couleur, gras ou pas, "
                                        "italique ou pas, barré ou pas .... ont été sauvegardés et seront restaurés à "
                                        "chaque lancement de Glyphora"));
}

void tglyphora::restorePreferences()
{
    if (!Settings::GetBool(param, QStringLiteral("pref"), false))
        return;

    setButtonValue(BoldButton, readInt16(QStringLiteral("Gras"), 0));
    setButtonValue(ItalicButton, readInt16(QStringLiteral("Italique"), 0));
    setButtonValue(StrikeButton, readInt16(QStringLiteral("Barre"), 0));
    setButtonValue(UnderlineButton, readInt16(QStringLiteral("Souligne"), 0));

    switch (readInt16(QStringLiteral("Align"), 0)) {
    case 0:
        setButtonValue(8, 1);
        alignLeft();
        break;
    case 1:
        setButtonValue(9, 1);
        alignCentre();
        break;
    case 2:
        setButtonValue(10, 1);
        alignRight();
        break;
    default:
        break;
    }

    const qint32 text = Settings::GetInt32(param, QStringLiteral("CoulTxt"), qint32(ColorValue::fromColor(Text1->ForeColor())));
    Text1->setForeColor(ColorValue::toColor(text));
    Text2->setForeColor(ColorValue::toColor(text));
    const qint32 back = Settings::GetInt32(param, QStringLiteral("CoulFond"), qint32(ColorValue::fromColor(Text1->BackColor())));
    Text1->setBackColor(ColorValue::toColor(back));
    Text2->setBackColor(ColorValue::toColor(back));

    const int size = storedSize(Combo1->count());
    for (SampleBox* box : {Text1, Text2}) {
        QFont font = box->font();
        if (size > 0)
            font.setPointSize(size);
        box->setFont(font);
    }
    Combo1->setCurrentIndex(size - 4);

    Text1->setText(read(QStringLiteral("Texte1"), Text1->text()));
    Text2->setText(read(QStringLiteral("Texte2"), Text2->text()));

    applyStrikethrough();
    applyUnderline();
    applyItalic();
    applyBold();
}
