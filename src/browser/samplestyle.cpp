// Sample rendering: size, styles, alignment and colours, applied to both sample boxes.
#include "app/tglyphora.h"

#include "browser/samplebox.h"
#include "browser/scriptnotice.h"
#include "components/cmdialog.h"
#include "components/conversions.h"

#include <QAction>
#include <QComboBox>
#include <QTimer>

void tglyphora::applyFaceAndStyles(const QString& faceName)
{
    // One font per box: the face and the four style buttons together.
    for (SampleBox* box : {Text1, Text2}) {
        QFont font = box->font();
        font.setFamilies({faceName});
        font.setStyleStrategy(QFont::NoFontMerging);
        font.setBold(ButtonValue(BoldButton) != 0);
        font.setItalic(ButtonValue(ItalicButton) != 0);
        font.setStrikeOut(ButtonValue(StrikeButton) != 0);
        font.setUnderline(ButtonValue(UnderlineButton) != 0);
        box->setFont(font);
    }
    m_scriptNotice->faceChanged(faceName);
}

static void setFontFlag(SampleBox* box, void (QFont::*setter)(bool), bool on)
{
    QFont font = box->font();
    (font.*setter)(on);
    box->setFont(font);
}

void tglyphora::applyBold()
{
    for (SampleBox* box : {Text1, Text2})
        setFontFlag(box, &QFont::setBold, ButtonValue(BoldButton) != 0);
    afficheinfos();
}

void tglyphora::applyItalic()
{
    for (SampleBox* box : {Text1, Text2})
        setFontFlag(box, &QFont::setItalic, ButtonValue(ItalicButton) != 0);
    afficheinfos();
}

void tglyphora::applyUnderline()
{
    for (SampleBox* box : {Text1, Text2})
        setFontFlag(box, &QFont::setUnderline, ButtonValue(UnderlineButton) != 0);
    afficheinfos();
}

void tglyphora::applyStrikethrough()
{
    for (SampleBox* box : {Text1, Text2})
        setFontFlag(box, &QFont::setStrikeOut, ButtonValue(StrikeButton) != 0);
    afficheinfos();
}

// Alignment does not change the measured size, so nothing is re-measured.
void tglyphora::alignLeft()
{
    Text1->setAlignment(SampleBox::AlignLeft);
    Text2->setAlignment(SampleBox::AlignLeft);
}

void tglyphora::alignCentre()
{
    Text1->setAlignment(SampleBox::AlignCenter);
    Text2->setAlignment(SampleBox::AlignCenter);
}

void tglyphora::alignRight()
{
    Text1->setAlignment(SampleBox::AlignRight);
    Text2->setAlignment(SampleBox::AlignRight);
}

void tglyphora::applySize()
{
    if (Combo1->currentIndex() < 0)
        return;
    const double size = Conversions::leadingNumber(Combo1->currentText());
    if (size <= 0)
        return;
    for (SampleBox* box : {Text1, Text2}) {
        QFont font = box->font();
        font.setPointSizeF(size);
        box->setFont(font);
    }
    afficheinfos();
}

void tglyphora::Combo1_Click()
{
    applySize();
}

void tglyphora::nextSize(int step)
{
    const int index = Combo1->currentIndex();
    if (step > 0 && index < Combo1->count() - 1) {
        Combo1->setCurrentIndex(index + 1);
        applySize();
    } else if (step < 0 && index >= 1) {
        Combo1->setCurrentIndex(index - 1);
        applySize();
    }
}

void tglyphora::toggleButton(int n)
{
    setButtonValue(n, ButtonValue(n) != 1 ? 1 : 0);
}

void tglyphora::chooseBackColor()
{
    const QColor textColour = Text1->ForeColor();
    if (!CMDIALOG::ShowColor(this, Text1))
        return;
    Text1->setBackColor(Text1->ForeColor());
    Text1->setForeColor(textColour);
    Text2->setBackColor(Text1->BackColor());
}

void tglyphora::chooseForeColor()
{
    if (!CMDIALOG::ShowColor(this, Text1))
        return;
    Text1->setForeColor(CMDIALOG::ForeColor(Text1));
    Text2->setForeColor(Text1->ForeColor());
}

void tglyphora::stopSlideshow()
{
    if (Timer1->isActive())
        Timer1->stop();
}

void tglyphora::Combo1_KeyUp(int KeyCode, int)
{
    if (KeyCode == 27)
        stopSlideshow();
}

void tglyphora::Text1_KeyUp(int KeyCode, int)
{
    if (KeyCode == 27)
        stopSlideshow();
}

void tglyphora::Text2_KeyUp(int KeyCode, int)
{
    if (KeyCode == 27)
        stopSlideshow();
}

void tglyphora::malgauche_Click() { alignLeft(); }
void tglyphora::malcentre_Click() { alignCentre(); }
void tglyphora::maldrote_Click() { alignRight(); }

void tglyphora::mbold_Click()
{
    toggleButton(BoldButton);
    applyBold();
}

void tglyphora::mital_Click()
{
    toggleButton(ItalicButton);
    applyItalic();
}

void tglyphora::msoul_Click()
{
    toggleButton(UnderlineButton);
    applyUnderline();
}

void tglyphora::mbar_Click()
{
    toggleButton(StrikeButton);
    applyStrikethrough();
}
