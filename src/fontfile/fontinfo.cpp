// FontInfo: the main window's font applied to a drawing surface, then measured.
#include "fontfile/fontinfo.h"

#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/conversions.h"
#include "components/runtimeerror.h"
#include "fontfile/fontsystem.h"
#include "fontfile/picturebox.h"

#include <QComboBox>
#include <QFontInfo>
#include <QFontMetrics>
#include <QPlainTextEdit>
#include <QTreeWidget>

FontInfo::FontInfo(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("FontInfo"));
    setWindowTitle(QStringLiteral("Infos sur une police"));
    resize(420, 260);
    Picture1 = new PictureBox(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setGeometry(0, 0, 200, 60);
    Text1 = new QPlainTextEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setLineWrapMode(QPlainTextEdit::NoWrap);
    Text1->raise(); // covers the drawing surface
}

void FontInfo::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = true;
        Form_Load();
    }
    QDialog::setVisible(visible);
}

QString FontInfo::Text() const
{
    QString plain = Text1->toPlainText();
    return plain.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
}

void FontInfo::Form_Load()
{
    m_charsets = TextMetrics::charsetTable();
    try {
        applyMainWindowFont();
        setWindowTitle(QStringLiteral("Infos sur une police") + QStringLiteral(" - ") + Picture1->font().family());
        const TextMetric metric = GetTextMetrics();
        Text1->hide();
        Text1->clear();
        QString text;
        for (const QString& line : TextMetrics::informationLines(metric, m_charsets)) {
            text += line;
            Text1->setPlainText(text);
        }
        Text1->show();
    } catch (const RuntimeError&) {
        // A control that fails stops the loading there; nothing is said.
    }
}

void FontInfo::applyMainWindowFont()
{
    tglyphora* main = tglyphora::instance();
    if (!main)
        throw RuntimeError::objectMissing();
    QTreeWidgetItem* selected = main->List1->currentItem();
    if (!selected)
        throw RuntimeError::objectMissing(); // no selected item
    QFont font = Picture1->font();
    font.setFamilies({selected->text(0)});
    font.setBold(main->ButtonValue(tglyphora::BoldButton) != 0);
    font.setItalic(main->ButtonValue(tglyphora::ItalicButton) != 0);
    const double size = Conversions::leadingNumber(main->Combo1->itemText(main->Combo1->currentIndex()));
    if (size <= 0)
        throw RuntimeError(380, QStringLiteral("Glyphora"), QStringLiteral("Valeur de propriété non valide"));
    font.setPointSizeF(size);
    font.setStrikeOut(main->ButtonValue(tglyphora::StrikeButton) != 0);
    font.setUnderline(main->ButtonValue(tglyphora::UnderlineButton) != 0);
    Picture1->setFont(font);
    // Printing the sample puts the font in force on the surface before it is measured.
    Picture1->Print(main->Text1->text());
}

TextMetric FontInfo::GetTextMetrics() const
{
    const QFont font = Picture1->font();
    const QFontMetrics metrics(font, Picture1);
    TextMetric metric;
    metric.tmAscent = metrics.ascent();
    metric.tmDescent = metrics.descent();
    metric.tmHeight = metrics.height();
    metric.tmAveCharWidth = metrics.averageCharWidth();
    metric.tmMaxCharWidth = metrics.maxWidth();

    const QFontInfo selected(font);
    std::optional<FontSystem::CharacterInfo> characters;
    if (const auto face = FontSystem::matchedFace(selected.family(), selected.bold(), selected.italic()))
        characters = FontSystem::characterInfo(*face);
    const FontSystem::CharacterInfo info = characters.value_or(FontSystem::CharacterInfo{});
    metric.tmCharSet = TextMetrics::charSetOf(info.symbolCmap, info.codePageRange1);
    metric.tmDefaultChar = TextMetrics::clampToByte(info.defaultChar);
    metric.tmFirstChar = TextMetrics::clampToByte(info.firstChar);
    metric.tmLastChar = TextMetrics::clampToByte(info.lastChar);
    return metric;
}

void FontInfo::Form_Resize()
{
    Text1->setGeometry(0, 0, width(), height());
}

void FontInfo::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    Form_Resize();
}
