// The typographic details window on the main window's selected family: the menu item
// and its shortcut, the faces list, identity and metrics of DejaVu Sans against its
// bytes, features and axes re-drawing the sample as HarfBuzz shapes it, the metrics
// picture, faces without OS/2 or of other formats, and the CSS and report of a known state.
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "fontfile/fontdetails.h"
#include "fontfile/metricspicture.h"
#include "support/fontfiles.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QClipboard>
#include <QComboBox>
#include <QFontDatabase>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTreeWidget>
#include <hb-ot.h>
#include <hb.h>

namespace {

int u16(const QByteArray& t, int at) { return (quint8(t[at]) << 8) | quint8(t[at + 1]); }
int i16(const QByteArray& t, int at) { return qint16(u16(t, at)); }

// HarfBuzz's glyphs for a text, with its own OpenType functions.
QList<unsigned> shapedIds(const QString& path, int index, const QString& text, double pixels, const char* feature = nullptr)
{
    hb_blob_t* blob = hb_blob_create_from_file(QFile::encodeName(path).constData());
    hb_face_t* face = hb_face_create(blob, unsigned(index));
    hb_font_t* font = hb_font_create(face);
    hb_font_set_scale(font, int(pixels * 64), int(pixels * 64));
    hb_feature_t features[1];
    const bool withFeature = feature && hb_feature_from_string(feature, -1, &features[0]);
    hb_buffer_t* buffer = hb_buffer_create();
    const QByteArray utf8 = text.toUtf8();
    hb_buffer_add_utf8(buffer, utf8.constData(), int(utf8.size()), 0, int(utf8.size()));
    hb_buffer_guess_segment_properties(buffer);
    hb_shape(font, buffer, features, withFeature ? 1 : 0);
    unsigned count = 0;
    const hb_glyph_info_t* info = hb_buffer_get_glyph_infos(buffer, &count);
    QList<unsigned> ids;
    for (unsigned i = 0; i < count; ++i)
        ids << info[i].codepoint;
    hb_buffer_destroy(buffer);
    hb_font_destroy(font);
    hb_face_destroy(face);
    hb_blob_destroy(blob);
    return ids;
}

QList<unsigned> idsOf(const FontDetails& window)
{
    QList<unsigned> ids;
    for (const auto& glyph : window.sample().glyphs)
        ids << glyph.id;
    return ids;
}

double widthOf(const FontDetails& window)
{
    return window.sample().width;
}

QTreeWidgetItem* rowOf(QTreeWidget* tree, const QString& text, int column = 0)
{
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        if (tree->topLevelItem(i)->text(column) == text)
            return tree->topLevelItem(i);
    return nullptr;
}

QString points(double value)
{
    QString text = QString::number(value, 'f', 2).replace(QLatin1Char('.'), QLatin1Char(','));
    while (text.contains(QLatin1Char(',')) && (text.endsWith(QLatin1Char('0')) || text.endsWith(QLatin1Char(','))))
        text.chop(1);
    return text + QStringLiteral(" pt");
}

} // namespace

class TestFontDetails : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    tglyphora* m_main = nullptr;
    QString m_knownFile;

    QString registerFont(const QString& fileName, const QByteArray& bytes)
    {
        const QString path = m_dir.filePath(fileName);
        if (!Sfnt::writeFile(path, bytes) || QFontDatabase::addApplicationFont(path) < 0)
            return QString();
        return path;
    }

    void choose(const QString& family, int size = 13, const QString& text = QString())
    {
        const auto found = m_main->List1->findItems(family, Qt::MatchExactly);
        QVERIFY2(!found.isEmpty(), qPrintable(family));
        m_main->List1->setCurrentItem(found.first());
        m_main->List1_Click();
        m_main->Combo1->setCurrentIndex(m_main->Combo1->findText(QStringLiteral(" ") + QString::number(size)));
        if (!text.isEmpty())
            m_main->Text1->setText(text);
    }

    // A font whose every field is known: DejaVu's outlines under hand-made tables.
    QByteArray knownFont()
    {
        QList<Sfnt::Name> names = Sfnt::familyNames(QStringLiteral("Glyphora Détails"));
        names << Sfnt::microsoft(8, QStringLiteral("Fonderie Glyphora")) << Sfnt::microsoft(9, QStringLiteral("A. Dessinatrice"))
              << Sfnt::microsoft(11, QStringLiteral("https://glyphora.example/fonderie"))
              << Sfnt::microsoft(13, QStringLiteral("Utilisation libre."))
              << Sfnt::microsoft(14, QStringLiteral("https://glyphora.example/licence"))
              << Sfnt::microsoft(256, QStringLiteral("Chiffres ouverts"), 0x040C);
        Sfnt::Os2Fields os2;
        os2.fsType = 0x0008;
        os2.panose = {2, 11, 6, 3, 3, 8, 4, 2, 2, 4};
        os2.unicodeRanges = {0x3, 0, 0, 0};
        os2.codePages = {0x1, 0};
        QByteArray font = Sfnt::drawable(names);
        font = Sfnt::withTable(font, "OS/2", Sfnt::os2(os2));
        QByteArray hhea = Sfnt::tableOf(font, "hhea");
        hhea = Sfnt::with16(Sfnt::with16(Sfnt::with16(hhea, 4, 1900), 6, quint16(-500)), 8, 100);
        QByteArray post = Sfnt::tableOf(font, "post");
        post = Sfnt::with16(Sfnt::with16(post, 8, quint16(-150)), 10, 90);
        font = Sfnt::withTable(Sfnt::withTable(font, "hhea", hhea), "post", post);
        font = Sfnt::withoutTable(Sfnt::withoutTable(font, "GPOS"), "GDEF");
        return Sfnt::withTable(font, "GSUB", Sfnt::gsub({{"liga", {}}, {"smcp", {}}, {"ss01", 256}}));
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString& file : {FontFiles::dejaVuSans(), FontFiles::pagella(), FontFiles::interVariable(),
                                    FontFiles::nimbusSansType1(), FontFiles::notoSansCjk()})
            QVERIFY2(!file.isEmpty(), "a font package of scripts/install-deps.sh is missing");
        m_knownFile = registerFont(QStringLiteral("details.ttf"), knownFont());
        QVERIFY(!m_knownFile.isEmpty());
        QVERIFY(!registerFont(QStringLiteral("sansos2.ttf"),
                              Sfnt::withoutTable(Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Sans OS2"))), "OS/2"))
                     .isEmpty());
        m_main = new tglyphora;
        m_main->show();
    }

    void cleanupTestCase() { delete m_main; }

    void menuItemAndShortcutOpenTheWindowModally()
    {
        auto* item = m_main->findChild<QAction*>(QStringLiteral("mdetails"));
        QVERIFY(item);
        QVERIFY(m_main->moutils->actions().contains(item));
        QCOMPARE(item->text(), QStringLiteral("&Détails typographiques..."));
        QCOMPARE(item->shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_I));
        choose(QStringLiteral("DejaVu Sans"));
        for (int way = 0; way < 2; ++way) {
            QString title;
            bool modal = false;
            auto done = TestSupport::whenModal([&](QWidget* widget) {
                title = widget->windowTitle();
                modal = qobject_cast<FontDetails*>(widget) && widget->isModal();
                static_cast<QDialog*>(widget)->accept();
            });
            if (way == 0) {
                item->trigger();
            } else {
                QApplication::setActiveWindow(m_main);
                QVERIFY(QTest::qWaitForWindowActive(m_main));
                QTest::keyClick(m_main, Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
            }
            QVERIFY2(*done, way == 0 ? "menu" : "shortcut");
            QVERIFY(modal);
            QCOMPARE(title, QStringLiteral("Détails typographiques - DejaVu Sans"));
        }
    }

    void dejaVuSansFacesIdentityAndMetrics()
    {
        choose(QStringLiteral("DejaVu Sans"), 13);
        FontDetails window;
        window.show();
        QCOMPARE(QApplication::activeModalWidget(), nullptr); // no message box on the way
        QProcess list;
        list.start(QStringLiteral("fc-list"), {QStringLiteral("DejaVu Sans"), QStringLiteral("file")});
        list.waitForFinished(30000);
        const int faces = int(QString::fromLocal8Bit(list.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts).size());
        QCOMPARE(window.lstFaces->topLevelItemCount(), faces);
        QTreeWidgetItem* current = window.lstFaces->currentItem();
        QVERIFY(current);
        QCOMPARE(current->text(0), QStringLiteral("Book"));
        QCOMPARE(current->text(6), FontFiles::dejaVuSans());
        QCOMPARE(current->text(4), QStringLiteral("TrueType"));

        const QByteArray file = Sfnt::readFile(FontFiles::dejaVuSans());
        const int upem = u16(Sfnt::tableOf(file, "head"), 18);
        const int ascender = i16(Sfnt::tableOf(file, "hhea"), 4);
        QTreeWidgetItem* row = rowOf(window.lstMetriques, QStringLiteral("Unités par cadratin"));
        QVERIFY(row);
        QCOMPARE(row->text(1), QString::number(upem));
        row = rowOf(window.lstMetriques, QStringLiteral("Ascendant (hhea)"));
        QCOMPARE(row->text(1), QString::number(ascender));
        QCOMPARE(row->text(2), points(ascender * 13.0 / upem));
        QVERIFY(rowOf(window.lstMetriques, QStringLiteral("Hauteur d'x"))->text(1).endsWith(QStringLiteral(" (mesurée)")));
        QCOMPARE(rowOf(window.lstMetriques, QStringLiteral("Classe de graisse"))->text(1), QStringLiteral("400 (Normal)"));
        QVERIFY(rowOf(window.lstMetriques, QStringLiteral("Plages Unicode"))->childCount() > 3);
        const QString identity = window.txtIdentite->toPlainText();
        QVERIFY(identity.contains(QStringLiteral("Famille\tDejaVu Sans")) || identity.contains(QStringLiteral("Famille DejaVu Sans"))
                || identity.contains(QStringLiteral("Famille\nDejaVu Sans")));
        QVERIFY(identity.contains(QStringLiteral("PfEd")));
        QVERIFY(identity.contains(QStringLiteral("Installable")));
        QVERIFY(!window.picMetriques->pixmap().isNull());
        QCOMPARE(window.sampleText(), m_main->Text1->text());
        QCOMPARE(window.samplePixelSize(), 13.0 * window.logicalDpiY() / 72.0);
        QVERIFY(!window.picEchantillon->pixmap().isNull());

        // Another face: the panes follow.
        QTreeWidgetItem* bold = nullptr;
        for (int i = 0; i < window.lstFaces->topLevelItemCount(); ++i)
            if (window.lstFaces->topLevelItem(i)->text(6).endsWith(QStringLiteral("/DejaVuSans-Bold.ttf")))
                bold = window.lstFaces->topLevelItem(i);
        QVERIFY(bold);
        window.lstFaces->setCurrentItem(bold);
        QCOMPARE(rowOf(window.lstMetriques, QStringLiteral("Classe de graisse"))->text(1), QStringLiteral("700 (Gras)"));
        QVERIFY(window.txtIdentite->toPlainText().contains(QStringLiteral("DejaVu Sans Bold")));
        QVERIFY(window.lstFonctions->topLevelItemCount() > 5);
        QVERIFY(window.sldAxe.isEmpty());
        QVERIFY(!window.findChild<QLabel*>(QStringLiteral("lblSansAxes"))->isHidden());
        QVERIFY(!window.cboInstances->isEnabled());
    }

    void featuresRedrawTheSampleAsHarfBuzzShapes_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::newRow("smcp") << QStringLiteral("smcp");
        QTest::newRow("onum") << QStringLiteral("onum");
    }

    void featuresRedrawTheSampleAsHarfBuzzShapes()
    {
        QFETCH(QString, tag);
        const QString text = QStringLiteral("Abc 123");
        choose(QStringLiteral("TeX Gyre Pagella"), 36, text);
        FontDetails window;
        window.show();
        QCOMPARE(window.lstFaces->currentItem()->text(6), FontFiles::pagella());
        const double pixels = window.samplePixelSize();
        const QList<unsigned> plain = idsOf(window);
        QCOMPARE(plain, shapedIds(FontFiles::pagella(), 0, text, pixels));
        const QImage before = window.picEchantillon->pixmap().toImage();
        QTreeWidgetItem* item = rowOf(window.lstFonctions, tag);
        QVERIFY(item);
        QCOMPARE(item->checkState(0), Qt::Unchecked);
        item->setCheckState(0, Qt::Checked);
        QCOMPARE(idsOf(window), shapedIds(FontFiles::pagella(), 0, text, pixels, qPrintable(tag)));
        QVERIFY(idsOf(window) != plain);
        QVERIFY(window.picEchantillon->pixmap().toImage() != before);
        item->setCheckState(0, Qt::Unchecked);
        QCOMPARE(idsOf(window), plain);
        // A feature on by default starts checked, and unchecking it turns it off.
        QTreeWidgetItem* kern = rowOf(window.lstFonctions, QStringLiteral("kern"));
        QCOMPARE(kern->checkState(0), Qt::Checked);
        QCOMPARE(kern->text(2), QStringLiteral("GPOS"));
        QCOMPARE(rowOf(window.lstFonctions, QStringLiteral("onum"))->text(1), QStringLiteral("Chiffres elzéviriens"));
    }

    void axesAndInstancesRedrawTheSample()
    {
        choose(QStringLiteral("Inter"), 36, QStringLiteral("Sphinx of black quartz, judge my vow! 0123456789 — ça va ?!"));
        FontDetails window;
        window.show();
        QTreeWidgetItem* variable = nullptr;
        for (int i = 0; i < window.lstFaces->topLevelItemCount(); ++i) {
            QTreeWidgetItem* row = window.lstFaces->topLevelItem(i);
            if (row->text(6) == FontFiles::interVariable() && row->text(4) == QStringLiteral("TrueType, variable"))
                variable = row;
        }
        QVERIFY(variable); // fontconfig's pattern for the whole design space
        QCOMPARE(variable->text(5), QStringLiteral("0"));
        QCOMPARE(variable->text(1), QStringLiteral("100–900"));
        window.lstFaces->setCurrentItem(variable);
        QCOMPARE(window.sldAxe.size(), 2);
        QCOMPARE(window.sldAxe[0]->objectName(), QStringLiteral("sldAxe_0"));
        QCOMPARE(window.lblAxe[0]->text(), QStringLiteral("Graisse (wght) : 400"));
        QCOMPARE(window.lblAxe[1]->text(), QStringLiteral("Inclinaison (slnt) : 0"));
        QCOMPARE(window.cboInstances->count(), 18);
        QCOMPARE(window.cboInstances->currentText(), QStringLiteral("Regular"));
        const double regular = widthOf(window);

        window.sldAxe[0]->setValue(900);
        QCOMPARE(window.lblAxe[0]->text(), QStringLiteral("Graisse (wght) : 900"));
        QCOMPARE(window.cboInstances->currentText(), QStringLiteral("Black"));
        QVERIFY(widthOf(window) > regular * 1.03);
        SampleRenderer reference;
        SampleRenderer::Request request;
        request.file = FontFiles::interVariable();
        request.text = window.sampleText();
        request.pixelSize = window.samplePixelSize();
        request.axes = {{"wght", 900}, {"slnt", 0}};
        request.margin = 6;
        QCOMPARE(widthOf(window), reference.render(request).width);

        window.sldAxe[0]->setValue(650);
        QCOMPARE(window.cboInstances->currentIndex(), -1); // between instances
        QVERIFY(window.cssText().contains(QStringLiteral("font-variation-settings: \"wght\" 650, \"slnt\" 0;")));
        QVERIFY(window.cssText().contains(QStringLiteral("font-weight: 650;")));

        window.cboInstances->setCurrentIndex(0);
        emit window.cboInstances->activated(0);
        QCOMPARE(window.sldAxe[0]->value(), 100);
        QCOMPARE(window.lblAxe[0]->text(), QStringLiteral("Graisse (wght) : 100"));
        QVERIFY(widthOf(window) < regular);
        QVERIFY(window.reportText().contains(QStringLiteral("  Instance nommée : Thin\n")));

        // Tenths on a short axis.
        window.sldAxe[1]->setValue(-75);
        QCOMPARE(window.lblAxe[1]->text(), QStringLiteral("Inclinaison (slnt) : -7,5"));
        QCOMPARE(window.state().axisValues[1], -7.5);
    }

    void metricsPictureLines()
    {
        const auto data = FaceTables::read(FontFiles::dejaVuSans(), 0);
        SampleRenderer renderer;
        SampleRenderer::Request face;
        face.file = FontFiles::dejaVuSans();
        const auto picture = MetricsPicture::draw(renderer, face, QStringLiteral("Hxgp"), data, QSize(460, 280), {});
        QCOMPARE(picture.image.size(), QSize(460, 280));
        QMap<QString, int> y;
        for (const auto& line : picture.lines)
            y.insert(line.label, line.y);
        QCOMPARE(y.keys(), (QStringList{QStringLiteral("Ascendant"), QStringLiteral("Capitales (mesurée)"),
                                        QStringLiteral("Descendant"), QStringLiteral("Hauteur d'x (mesurée)"),
                                        QStringLiteral("Ligne de base")}));
        QVERIFY(y[QStringLiteral("Ascendant")] < y[QStringLiteral("Capitales (mesurée)")]);
        QVERIFY(y[QStringLiteral("Capitales (mesurée)")] < y[QStringLiteral("Hauteur d'x (mesurée)")]);
        QVERIFY(y[QStringLiteral("Hauteur d'x (mesurée)")] < y[QStringLiteral("Ligne de base")]);
        QVERIFY(y[QStringLiteral("Ligne de base")] < y[QStringLiteral("Descendant")]);
        QVERIFY(y[QStringLiteral("Descendant")] <= 280 && y[QStringLiteral("Ascendant")] >= 0);
        // The x-height line sits on the top of the drawn "x" (within a pixel).
        const double px = picture.pixelSize;
        QVERIFY(std::abs((y[QStringLiteral("Ligne de base")] - y[QStringLiteral("Hauteur d'x (mesurée)")]) - *data.xHeight * px / *data.unitsPerEm) <= 1);
        // A long word is cut, not shrunk: the alphabet is drawn as large as its first three letters.
        const auto alphabet = MetricsPicture::draw(renderer, face, QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), data,
                                                   QSize(460, 280), {});
        const auto three = MetricsPicture::draw(renderer, face, QStringLiteral("ABC"), data, QSize(460, 280), {});
        QCOMPARE(alphabet.pixelSize, three.pixelSize);
        QVERIFY(alphabet.pixelSize > 80);
        QCOMPARE(MetricsPicture::firstWord(QStringLiteral("  Premier mot\r\nsuite")), QStringLiteral("Premier"));
        QCOMPARE(MetricsPicture::firstWord(QStringLiteral(" \r\n ")), QStringLiteral("Hxg"));
        const auto none = MetricsPicture::draw(renderer, SampleRenderer::Request{}, QStringLiteral("Hxg"), {}, QSize(200, 100), {});
        QCOMPARE(none.image.size(), QSize(200, 100));
        QVERIFY(none.lines.isEmpty());
    }

    void facesWithoutTablesOrOfOtherFormats()
    {
        choose(QStringLiteral("Glyphora Sans OS2"));
        {
            FontDetails window;
            window.show();
            QCOMPARE(QApplication::activeModalWidget(), nullptr);
            QCOMPARE(rowOf(window.lstMetriques, QStringLiteral("Version de la table OS/2"))->text(1), QStringLiteral("—"));
            QCOMPARE(rowOf(window.lstMetriques, QStringLiteral("Classe de graisse"))->text(1), QStringLiteral("—"));
            QVERIFY(rowOf(window.lstMetriques, QStringLiteral("Hauteur d'x"))->text(1).endsWith(QStringLiteral("(mesurée)")));
            QVERIFY(window.txtIdentite->toPlainText().contains(QStringLiteral("—")));
            QVERIFY(!window.picEchantillon->pixmap().isNull());
        }
        choose(QStringLiteral("Nimbus Sans"));
        {
            FontDetails window;
            window.show();
            QTreeWidgetItem* type1 = rowOf(window.lstFaces, FontFiles::nimbusSansType1(), 6);
            QVERIFY(type1);
            QCOMPARE(type1->text(4), QStringLiteral("Type 1"));
            window.lstFaces->setCurrentItem(type1);
            QCOMPARE(rowOf(window.lstMetriques, QStringLiteral("Ascendant (hhea)"))->text(1), QStringLiteral("—"));
            QCOMPARE(rowOf(window.lstMetriques, QStringLiteral("Unités par cadratin"))->text(1), QStringLiteral("1000"));
            QVERIFY(!window.findChild<QLabel*>(QStringLiteral("lblSansFonctions"))->isHidden());
            QVERIFY(window.lstFonctions->isHidden());
            QVERIFY(!window.sample().glyphs.isEmpty());
        }
        choose(QStringLiteral("Noto Sans CJK JP"));
        {
            FontDetails window;
            window.show();
            QVERIFY(window.lstFaces->topLevelItemCount() > 0);
            QVERIFY(window.lstFaces->currentItem()->text(4).contains(QStringLiteral("collection")));
            QVERIFY(!window.sample().glyphs.isEmpty());
        }
    }

    void familyWithoutFaces()
    {
        auto* item = new QTreeWidgetItem(m_main->List1, {QStringLiteral("Famille Inexistante")});
        choose(QStringLiteral("Famille Inexistante"));
        {
            FontDetails window;
            window.show();
            QCOMPARE(QApplication::activeModalWidget(), nullptr);
            QCOMPARE(window.lstFaces->topLevelItemCount(), 0);
            QCOMPARE(window.picEchantillon->text(), QStringLiteral("Échantillon indisponible pour cette face."));
            QCOMPARE(rowOf(window.lstMetriques, QStringLiteral("Unités par cadratin"))->text(1), QStringLiteral("—"));
            QVERIFY(window.reportText().startsWith(QStringLiteral("Détails typographiques : Famille Inexistante\n")));
            QVERIFY(window.cssText().startsWith(QStringLiteral("font-family: \"Famille Inexistante\";\n")));
        }
        delete item;
    }

    void cssAndReportOfAKnownState()
    {
        choose(QStringLiteral("Glyphora Détails"), 13, QStringLiteral("Texte"));
        FontDetails window;
        window.show();
        QCOMPARE(window.lstFaces->topLevelItemCount(), 1);
        QCOMPARE(rowOf(window.lstFonctions, QStringLiteral("ss01"))->text(1), QStringLiteral("Jeu stylistique 1 : Chiffres ouverts"));
        rowOf(window.lstFonctions, QStringLiteral("smcp"))->setCheckState(0, Qt::Checked);
        rowOf(window.lstFonctions, QStringLiteral("liga"))->setCheckState(0, Qt::Unchecked);
        const QString css = QStringLiteral("font-family: \"Glyphora Détails\";\n"
                                           "font-weight: 400;\n"
                                           "font-style: normal;\n"
                                           "font-size: 13pt;\n"
                                           "font-feature-settings: \"liga\" 0, \"smcp\" 1;\n");
        QCOMPARE(window.cssText(), css);
        window.cmdCopierCSS->click();
        QCOMPARE(QApplication::clipboard()->text(), css);

        const QFileInfo info(m_knownFile);
        const QLocale french(QLocale::French, QLocale::France);
        const QString size = french.toString(info.size()) + QStringLiteral(" octets (")
                             + french.toString(double(info.size()) / 1024, 'f', 0) + QStringLiteral(" Kio)");
        const int glyphs = u16(Sfnt::tableOf(Sfnt::readFile(m_knownFile), "maxp"), 4);
        const QString face = QStringLiteral("Regular | 400 | Normal | Romain | TrueType | 0 | ") + m_knownFile;
        const QString expected = QStringLiteral(
            "Détails typographiques : Glyphora Détails\n"
            "Face : %1\n"
            "\n"
            "Faces de la famille\n"
            "  %1\n"
            "\n"
            "Identité et licence\n"
            "  Famille : Glyphora Détails\n"
            "  Sous-famille : Regular\n"
            "  Famille typographique : —\n"
            "  Sous-famille typographique : —\n"
            "  Nom complet : Glyphora Détails Regular\n"
            "  Nom PostScript : GlyphoraDétails-Regular\n"
            "  Version : Version 1.0\n"
            "  Identifiant unique : Glyphora Détails Regular test\n"
            "  Fabricant : Fonderie Glyphora\n"
            "  Dessinateur : A. Dessinatrice\n"
            "  Fournisseur (achVendID) : GLYP\n"
            "  Description : —\n"
            "  Copyright : Copyright (c) Glyphora tests\n"
            "  Marque déposée : Glyphora is a test mark\n"
            "  Licence : Utilisation libre.\n"
            "  URL de la licence : https://glyphora.example/licence\n"
            "  URL du dessinateur : —\n"
            "  URL du fournisseur : https://glyphora.example/fonderie\n"
            "  Droits d'incorporation : Modifiable\n"
            "  Format : TrueType\n"
            "  Taille du fichier : %2\n"
            "  Date de modification : %3\n"
            "\n"
            "Métriques (échantillon à 13 pt)\n"
            "  Unités par cadratin : 2048\n"
            "  Ascendant (hhea) : 1900 (12,06 pt)\n"
            "  Descendant (hhea) : -500 (-3,17 pt)\n"
            "  Interligne (hhea) : 100 (0,63 pt)\n"
            "  Version de la table OS/2 : 4\n"
            "  Ascendant typographique (OS/2) : 1600 (10,16 pt)\n"
            "  Descendant typographique (OS/2) : -400 (-2,54 pt)\n"
            "  Interligne typographique (OS/2) : 200 (1,27 pt)\n"
            "  USE_TYPO_METRICS : Non\n"
            "  Ascendant Windows (OS/2) : 1900 (12,06 pt)\n"
            "  Descendant Windows (OS/2) : 500 (3,17 pt)\n"
            "  Hauteur d'x : 1100 (6,98 pt)\n"
            "  Hauteur des capitales : 1500 (9,52 pt)\n"
            "  Position du soulignement : -150 (-0,95 pt)\n"
            "  Épaisseur du soulignement : 90 (0,57 pt)\n"
            "  Position du barré : 500 (3,17 pt)\n"
            "  Épaisseur du barré : 100 (0,63 pt)\n"
            "  Angle de l'italique : 0°\n"
            "  Classe de graisse : 400 (Normal)\n"
            "  Classe de chasse : 5 (Normal)\n"
            "  PANOSE : 2 11 6 3 3 8 4 2 2 4\n"
            "    Genre : Texte et titrage\n"
            "    Empattements : Sans empattement normal\n"
            "    Proportions : Moderne\n"
            "  Nombre de glyphes : %4\n"
            "  Plages Unicode : 2\n"
            "    Latin de base\n"
            "    Supplément Latin-1\n"
            "  Pages de code : 1\n"
            "    1252 Latin 1\n"
            "\n"
            "Fonctionnalités OpenType\n"
            "  [ ] liga Ligatures standard (GSUB)\n"
            "  [x] smcp Petites capitales (GSUB)\n"
            "  [ ] ss01 Jeu stylistique 1 : Chiffres ouverts (GSUB)\n"
            "\n"
            "Axes variables\n"
            "  —\n"
            "\n"
            "CSS\n"
            "  font-family: \"Glyphora Détails\";\n"
            "  font-weight: 400;\n"
            "  font-style: normal;\n"
            "  font-size: 13pt;\n"
            "  font-feature-settings: \"liga\" 0, \"smcp\" 1;\n")
                                     .arg(face, size, info.lastModified().toString(QStringLiteral("dd/MM/yyyy HH:mm")))
                                     .arg(glyphs);
        QCOMPARE(window.reportText(), expected);
        window.cmdCopierRapport->click();
        QCOMPARE(QApplication::clipboard()->text(), expected);
        window.cmdFermer->click();
        QVERIFY(!window.isVisible());
    }
};

GLYPHORA_TEST_MAIN(TestFontDetails)
#include "test_fontdetails.moc"
