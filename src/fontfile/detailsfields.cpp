// DetailsFields: the rows of the identity and metrics panes, the faces list, the
// feature and axis labels, and the CSS and report texts built from them.
#include "fontfile/detailsfields.h"

#include "fontfile/typowords.h"

#include <QLocale>
#include <algorithm>
#include <cmath>
#include <tuple>

namespace DetailsFields {

namespace {

QString orDash(const QString& text)
{
    return text.trimmed().isEmpty() ? dash : text;
}

// The address a URL field opens; nothing for other schemes (a font's text is untrusted).
QString linkOf(const QString& text)
{
    const QString url = text.trimmed();
    if (url.startsWith(QLatin1String("http://"), Qt::CaseInsensitive)
        || url.startsWith(QLatin1String("https://"), Qt::CaseInsensitive)
        || url.startsWith(QLatin1String("mailto:"), Qt::CaseInsensitive))
        return url;
    if (url.startsWith(QLatin1String("www."), Qt::CaseInsensitive))
        return QStringLiteral("http://") + url;
    return QString();
}

// Printable ASCII only: achVendID is four bytes that are often padding.
QString vendorText(const std::optional<QString>& vendor)
{
    if (!vendor)
        return dash;
    QString text;
    for (QChar c : *vendor)
        if (c.unicode() > 0x20 && c.unicode() < 0x7F)
            text += c;
    return orDash(text);
}

QString fileSizeText(const std::optional<qint64>& size)
{
    if (!size)
        return dash;
    const QLocale french(QLocale::French, QLocale::France);
    QString text = french.toString(*size) + QStringLiteral(" octets");
    if (*size >= 1024)
        text += QStringLiteral(" (%1 Kio)").arg(french.toString(double(*size) / 1024.0, 'f', 0));
    return text;
}

Field length(const QString& label, const std::optional<int>& units, const FaceTables::FaceData& data, double points,
             bool measured = false)
{
    Field field{label, dash, QString(), QString(), {}};
    if (!units)
        return field;
    field.value = QString::number(*units);
    if (measured)
        field.value += QStringLiteral(" (mesurée)");
    if (data.unitsPerEm && *data.unitsPerEm > 0)
        field.points = frenchNumber(*units * points / *data.unitsPerEm) + QStringLiteral(" pt");
    return field;
}

Field plain(const QString& label, const QString& value)
{
    return {label, orDash(value), QString(), QString(), {}};
}

Field classField(const QString& label, const std::optional<int>& value, const QString& word)
{
    if (!value)
        return plain(label, QString());
    return plain(label, word.isEmpty() ? QString::number(*value) : QStringLiteral("%1 (%2)").arg(*value).arg(word));
}

Field panoseField(const FaceTables::FaceData& data)
{
    Field field = plain(QStringLiteral("PANOSE"), QString());
    if (!data.panose)
        return field;
    const auto& digits = *data.panose;
    QStringList numbers;
    for (quint8 digit : digits)
        numbers << QString::number(digit);
    field.value = numbers.join(QLatin1Char(' '));
    field.children << QStringLiteral("Genre : ") + orDash(TypoWords::panoseFamilyWord(digits[0]))
                   << QStringLiteral("Empattements : ") + orDash(TypoWords::panoseSerifWord(digits[0], digits[1]))
                   << QStringLiteral("Proportions : ") + orDash(TypoWords::panoseProportionWord(digits[0], digits[3]));
    return field;
}

Field listField(const QString& label, const std::optional<QStringList>& words)
{
    Field field = plain(label, QString());
    if (words) {
        field.value = QString::number(words->size());
        field.children = *words;
    }
    return field;
}

double weightKey(const FontSystem::FamilyFace& face)
{
    return face.weight ? *face.weight : face.weightMin.value_or(400);
}

QString weightText(const FontSystem::FamilyFace& face)
{
    if (face.weight)
        return QString::number(std::lround(*face.weight));
    if (face.weightMin && face.weightMax)
        return QStringLiteral("%1–%2").arg(std::lround(*face.weightMin)).arg(std::lround(*face.weightMax));
    return dash;
}

QString cssString(const QString& text)
{
    QString quoted;
    for (QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            quoted += QLatin1Char('\\');
        if (c.unicode() >= 0x20)
            quoted += c;
    }
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

void appendFields(QStringList& lines, const QString& title, const QList<Field>& fields)
{
    lines << QString() << title;
    for (const Field& field : fields) {
        QString line = QStringLiteral("  ") + field.label + QStringLiteral(" : ") + field.value;
        if (!field.points.isEmpty())
            line += QStringLiteral(" (") + field.points + QLatin1Char(')');
        lines << line;
        for (const QString& child : field.children)
            lines << QStringLiteral("    ") + child;
    }
}

} // namespace

QString frenchNumber(double value, int decimals)
{
    QLocale french(QLocale::French, QLocale::France);
    french.setNumberOptions(QLocale::OmitGroupSeparator);
    QString text = french.toString(value, 'f', decimals);
    if (text.contains(QLatin1Char(','))) { // no trailing zeros after the comma
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char(',')))
            text.chop(1);
    }
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

QString cssNumber(double value)
{
    const double rounded = std::round(value * 1000.0) / 1000.0;
    return QString::number(rounded == 0 ? 0.0 : rounded, 'g', 12);
}

QList<Field> identityFields(const FaceTables::FaceData& data)
{
    using namespace FaceTables;
    auto name = [&](const char* label, int id) { return plain(QString::fromUtf8(label), data.names.value(id)); };
    auto url = [&](const char* label, int id) {
        Field field = name(label, id);
        field.link = linkOf(data.names.value(id));
        return field;
    };
    QList<Field> fields{
        name("Famille", Family), name("Sous-famille", Subfamily), name("Famille typographique", TypographicFamily),
        name("Sous-famille typographique", TypographicSubfamily), name("Nom complet", FullName),
        name("Nom PostScript", PostScriptName), name("Version", Version), name("Identifiant unique", UniqueId),
        name("Fabricant", Manufacturer), name("Dessinateur", Designer),
        plain(QStringLiteral("Fournisseur (achVendID)"), vendorText(data.vendorId)),
        name("Description", Description), name("Copyright", Copyright), name("Marque déposée", Trademark),
        name("Licence", License), url("URL de la licence", LicenseUrl), url("URL du dessinateur", DesignerUrl),
        url("URL du fournisseur", VendorUrl),
    };
    fields << plain(QStringLiteral("Droits d'incorporation"),
                    data.fsType ? TypoWords::fsTypeWords(*data.fsType).join(QStringLiteral(", ")) : QString())
           << plain(QStringLiteral("Format"), data.format)
           << plain(QStringLiteral("Taille du fichier"), fileSizeText(data.fileSize))
           << plain(QStringLiteral("Date de modification"),
                    data.modified.isValid() ? data.modified.toString(QStringLiteral("dd/MM/yyyy HH:mm")) : QString());
    return fields;
}

QList<Field> metricFields(const FaceTables::FaceData& data, double points)
{
    auto len = [&](const char* label, const std::optional<int>& units, bool measured = false) {
        return length(QString::fromUtf8(label), units, data, points, measured);
    };
    QList<Field> fields{
        plain(QStringLiteral("Unités par cadratin"), data.unitsPerEm ? QString::number(*data.unitsPerEm) : QString()),
        len("Ascendant (hhea)", data.hheaAscender), len("Descendant (hhea)", data.hheaDescender),
        len("Interligne (hhea)", data.hheaLineGap),
        plain(QStringLiteral("Version de la table OS/2"), data.os2Version ? QString::number(*data.os2Version) : QString()),
        len("Ascendant typographique (OS/2)", data.typoAscender),
        len("Descendant typographique (OS/2)", data.typoDescender),
        len("Interligne typographique (OS/2)", data.typoLineGap),
        plain(QStringLiteral("USE_TYPO_METRICS"),
              data.useTypoMetrics ? (*data.useTypoMetrics ? QStringLiteral("Oui") : QStringLiteral("Non")) : QString()),
        len("Ascendant Windows (OS/2)", data.winAscent), len("Descendant Windows (OS/2)", data.winDescent),
        len("Hauteur d'x", data.xHeight, data.xHeightMeasured),
        len("Hauteur des capitales", data.capHeight, data.capHeightMeasured),
        len("Position du soulignement", data.underlinePosition),
        len("Épaisseur du soulignement", data.underlineThickness),
        len("Position du barré", data.strikeoutPosition), len("Épaisseur du barré", data.strikeoutSize),
        plain(QStringLiteral("Angle de l'italique"),
              data.italicAngle ? frenchNumber(*data.italicAngle) + QStringLiteral("°") : QString()),
        classField(QStringLiteral("Classe de graisse"), data.weightClass,
                   TypoWords::weightWord(data.weightClass.value_or(0))),
        classField(QStringLiteral("Classe de chasse"), data.widthClass, TypoWords::widthWord(data.widthClass.value_or(0))),
        panoseField(data),
        plain(QStringLiteral("Nombre de glyphes"), data.glyphCount ? QString::number(*data.glyphCount) : QString()),
    };
    fields << listField(QStringLiteral("Plages Unicode"),
                        data.unicodeRanges ? std::optional(TypoWords::unicodeRangeWords(*data.unicodeRanges))
                                           : std::nullopt)
           << listField(QStringLiteral("Pages de code"),
                        data.codePageRanges ? std::optional(TypoWords::codePageWords(*data.codePageRanges))
                                            : std::nullopt);
    return fields;
}

QStringList faceHeaders()
{
    return {QStringLiteral("Style"), QStringLiteral("Graisse"), QStringLiteral("Chasse"), QStringLiteral("Pente"),
            QStringLiteral("Format"), QStringLiteral("Index"), QStringLiteral("Fichier")};
}

QStringList faceColumns(const FontSystem::FamilyFace& face)
{
    TypoWords::FormatFacts facts;
    facts.container = face.fontFormat;
    facts.outlines = face.scalable;
    facts.cff2 = face.variable && face.fontFormat == QLatin1String("CFF");
    facts.collection = face.collection;
    facts.variable = face.variable;
    facts.wrapper = face.wrapper;
    QString index = QString::number(face.index & 0xFFFF);
    if (face.index >> 16)
        index += QStringLiteral(", instance %1").arg(face.index >> 16);
    return {orDash(face.style), weightText(face),
            TypoWords::widthWord(TypoWords::widthClassOfPercent(face.width)), TypoWords::slantWord(face.slant),
            TypoWords::formatWords(facts), index, face.path};
}

QList<FontSystem::FamilyFace> sortedFaces(QList<FontSystem::FamilyFace> faces)
{
    // Normal width first, then narrower and wider; roman before italic; light to heavy.
    std::stable_sort(faces.begin(), faces.end(), [](const auto& a, const auto& b) {
        return std::tuple(std::abs(a.width - 100), a.width, a.slant, weightKey(a), !a.variable, a.path, a.index)
             < std::tuple(std::abs(b.width - 100), b.width, b.slant, weightKey(b), !b.variable, b.path, b.index);
    });
    return faces;
}

int regularFace(const QList<FontSystem::FamilyFace>& faces)
{
    int best = -1;
    double bestScore = 0;
    for (int i = 0; i < faces.size(); ++i) {
        const auto& face = faces[i];
        // A variable face covering the regular weight comes just after a regular face of its own.
        double weightOff = face.weight ? std::abs(*face.weight - 400) : 0.5;
        if (!face.weight && face.weightMin && face.weightMax && (*face.weightMin > 400 || *face.weightMax < 400))
            weightOff = std::min(std::abs(*face.weightMin - 400), std::abs(*face.weightMax - 400));
        const double score = weightOff + std::abs(face.width - 100) + face.slant;
        if (best < 0 || score < bestScore) {
            best = i;
            bestScore = score;
        }
    }
    return best;
}

QString featureLabel(const FaceTables::Feature& feature)
{
    const QString name = TypoWords::featureName(feature.tag);
    if (!feature.fontName.isEmpty())
        return (name.isEmpty() ? QString::fromLatin1(feature.tag) : name) + QStringLiteral(" : ") + feature.fontName;
    return name.isEmpty() ? dash : name;
}

QString featureTables(const FaceTables::Feature& feature)
{
    QStringList tables;
    if (feature.inGsub)
        tables << QStringLiteral("GSUB");
    if (feature.inGpos)
        tables << QStringLiteral("GPOS");
    return tables.join(QStringLiteral(", "));
}

QSet<QByteArray> defaultChecked(const QList<FaceTables::Feature>& features)
{
    QSet<QByteArray> checked;
    for (const auto& feature : features)
        if (TypoWords::featureOnByDefault(feature.tag))
            checked.insert(feature.tag);
    return checked;
}

QList<SampleRenderer::Feature> requestedFeatures(const QList<FaceTables::Feature>& features,
                                                 const QSet<QByteArray>& checked)
{
    QList<SampleRenderer::Feature> requested;
    for (const auto& feature : features) {
        const bool on = checked.contains(feature.tag);
        if (on != TypoWords::featureOnByDefault(feature.tag))
            requested.append({feature.tag, on ? 1u : 0u});
    }
    return requested;
}

QString axisLabel(const FaceTables::Axis& axis)
{
    QString name = TypoWords::axisName(axis.tag);
    if (name.isEmpty())
        name = axis.fontName;
    return name.isEmpty() ? QString::fromLatin1(axis.tag)
                          : name + QStringLiteral(" (") + QString::fromLatin1(axis.tag) + QLatin1Char(')');
}

QString cssText(const State& state)
{
    QStringList lines{QStringLiteral("font-family: %1;").arg(cssString(state.family))};
    std::optional<double> weight;
    for (int i = 0; i < state.data.axes.size() && i < state.axisValues.size(); ++i)
        if (state.data.axes[i].tag == "wght")
            weight = state.axisValues[i];
    if (!weight && state.data.weightClass)
        weight = *state.data.weightClass;
    if (weight)
        lines << QStringLiteral("font-weight: %1;").arg(std::clamp(std::lround(*weight), 1L, 1000L));
    lines << QStringLiteral("font-style: %1;").arg(state.data.italic ? QStringLiteral("italic") : QStringLiteral("normal"))
          << QStringLiteral("font-size: %1pt;").arg(cssNumber(state.points));
    QStringList features;
    for (const auto& feature : requestedFeatures(state.data.features, state.checked))
        features << QStringLiteral("\"%1\" %2").arg(QString::fromLatin1(feature.tag)).arg(feature.value);
    lines << QStringLiteral("font-feature-settings: %1;")
                 .arg(features.isEmpty() ? QStringLiteral("normal") : features.join(QStringLiteral(", ")));
    QStringList axes;
    for (int i = 0; i < state.data.axes.size() && i < state.axisValues.size(); ++i)
        axes << QStringLiteral("\"%1\" %2").arg(QString::fromLatin1(state.data.axes[i].tag), cssNumber(state.axisValues[i]));
    if (!axes.isEmpty())
        lines << QStringLiteral("font-variation-settings: %1;").arg(axes.join(QStringLiteral(", ")));
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString reportText(const State& state, const QList<FontSystem::FamilyFace>& faces)
{
    QStringList lines{QStringLiteral("Détails typographiques : ") + state.family,
                      QStringLiteral("Face : ") + faceColumns(state.face).join(QStringLiteral(" | "))};
    lines << QString() << QStringLiteral("Faces de la famille");
    for (const auto& face : faces)
        lines << QStringLiteral("  ") + faceColumns(face).join(QStringLiteral(" | "));
    appendFields(lines, QStringLiteral("Identité et licence"), identityFields(state.data));
    appendFields(lines, QStringLiteral("Métriques (échantillon à %1 pt)").arg(frenchNumber(state.points)),
                 metricFields(state.data, state.points));
    lines << QString() << QStringLiteral("Fonctionnalités OpenType");
    if (state.data.features.isEmpty())
        lines << QStringLiteral("  ") + dash;
    for (const auto& feature : state.data.features)
        lines << QStringLiteral("  [%1] %2 %3 (%4)")
                     .arg(state.checked.contains(feature.tag) ? QLatin1Char('x') : QLatin1Char(' '))
                     .arg(QString::fromLatin1(feature.tag), featureLabel(feature), featureTables(feature));
    lines << QString() << QStringLiteral("Axes variables");
    if (state.data.axes.isEmpty())
        lines << QStringLiteral("  ") + dash;
    for (int i = 0; i < state.data.axes.size(); ++i) {
        const auto& axis = state.data.axes[i];
        lines << QStringLiteral("  %1 : %2 (de %3 à %4, par défaut %5)")
                     .arg(axisLabel(axis), frenchNumber(state.axisValues.value(i, axis.defaultValue)),
                          frenchNumber(axis.minimum), frenchNumber(axis.maximum), frenchNumber(axis.defaultValue));
    }
    if (!state.data.instances.isEmpty())
        lines << QStringLiteral("  Instance nommée : ") + orDash(state.instance);
    lines << QString() << QStringLiteral("CSS");
    for (const QString& line : cssText(state).split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        lines << QStringLiteral("  ") + line;
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

} // namespace DetailsFields
