// TypoWords: tables of French words indexed by the numbers and tags fonts store.
#include "fontfile/typowords.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <iterator>

namespace TypoWords {

namespace {

const char* const weightNames[] = {"Fin", "Extra-maigre", "Maigre", "Normal", "Médium",
                                   "Demi-gras", "Gras", "Extra-gras", "Noir"};
const char* const widthNames[] = {"Ultra-condensé", "Extra-condensé", "Condensé", "Semi-condensé", "Normal",
                                  "Semi-étendu", "Étendu", "Extra-étendu", "Ultra-étendu"};

const char* const panoseFamilies[] = {"Toutes", "Sans correspondance", "Texte et titrage", "Manuscrite",
                                      "Décorative", "Symboles"};
const char* const panoseSerifs[] = {"Tous", "Sans correspondance", "Gorge", "Gorge obtuse", "Gorge carrée",
                                    "Gorge carrée obtuse", "Carré", "Filiforme", "Ovale", "Exagéré",
                                    "Triangulaire", "Sans empattement normal", "Sans empattement obtus",
                                    "Sans empattement perpendiculaire", "Évasé", "Arrondi"};
const char* const panoseProportions[] = {"Toutes", "Sans correspondance", "Ancienne", "Moderne", "Largeur régulière",
                                         "Étendue", "Condensée", "Très étendue", "Très condensée", "Chasse fixe"};

struct TagName {
    const char* tag;
    const char* name;
};

const TagName featureNames[] = {
    {"aalt", "Accès à toutes les variantes"}, {"abvf", "Formes au-dessus de la base"},
    {"abvm", "Signes au-dessus de la base"}, {"abvs", "Substitutions au-dessus de la base"},
    {"afrc", "Fractions verticales"}, {"akhn", "Akhand"}, {"blwf", "Formes sous la base"},
    {"blwm", "Signes sous la base"}, {"blws", "Substitutions sous la base"},
    {"c2pc", "Capitales en petites capitales d'imprimerie"}, {"c2sc", "Capitales en petites capitales"},
    {"calt", "Variantes contextuelles"}, {"case", "Formes sensibles à la casse"},
    {"ccmp", "Composition et décomposition"}, {"cjct", "Formes conjointes"},
    {"clig", "Ligatures contextuelles"}, {"cpct", "Ponctuation centrée"}, {"cpsp", "Espacement des capitales"},
    {"cswh", "Paraphes contextuels"}, {"curs", "Attache cursive"}, {"dist", "Distances"},
    {"dlig", "Ligatures facultatives"}, {"dnom", "Dénominateurs"}, {"dtls", "Formes sans point"},
    {"expt", "Formes expertes"}, {"falt", "Variantes de justification finales"}, {"fin2", "Formes finales 2"},
    {"fin3", "Formes finales 3"}, {"fina", "Formes finales"}, {"flac", "Accents aplatis"},
    {"frac", "Fractions"}, {"fwid", "Pleine chasse"}, {"half", "Demi-formes"}, {"haln", "Formes halant"},
    {"halt", "Demi-chasse de substitution"}, {"hist", "Formes historiques"},
    {"hkna", "Kana horizontaux"}, {"hlig", "Ligatures historiques"}, {"hngl", "Hangûl"},
    {"hojo", "Formes Hojo"}, {"hwid", "Demi-chasse"}, {"init", "Formes initiales"}, {"isol", "Formes isolées"},
    {"ital", "Italiques"}, {"jalt", "Variantes de justification"}, {"jp04", "Formes JIS2004"},
    {"jp78", "Formes JIS78"}, {"jp83", "Formes JIS83"}, {"jp90", "Formes JIS90"}, {"kern", "Crénage"},
    {"lfbd", "Alignement à gauche"}, {"liga", "Ligatures standard"}, {"ljmo", "Jamos initiaux"},
    {"lnum", "Chiffres alignés"}, {"locl", "Formes locales"}, {"ltra", "Variantes de gauche à droite"},
    {"ltrm", "Miroirs de gauche à droite"}, {"mark", "Placement des signes"}, {"med2", "Formes médianes 2"},
    {"medi", "Formes médianes"}, {"mgrk", "Grec mathématique"}, {"mkmk", "Signes sur signes"},
    {"mset", "Placement des signes par substitution"}, {"nalt", "Variantes d'annotation"},
    {"nlck", "Formes kanji NLC"}, {"nukt", "Formes nukta"}, {"numr", "Numérateurs"},
    {"onum", "Chiffres elzéviriens"}, {"opbd", "Limites optiques"}, {"ordn", "Ordinaux"},
    {"ornm", "Ornements"}, {"palt", "Chasse proportionnelle de substitution"}, {"pcap", "Petites capitales d'imprimerie"},
    {"pkna", "Kana proportionnels"}, {"pnum", "Chiffres proportionnels"}, {"pref", "Formes pré-base"},
    {"pres", "Substitutions pré-base"}, {"pstf", "Formes post-base"}, {"psts", "Substitutions post-base"},
    {"pwid", "Chasse proportionnelle"}, {"qwid", "Quart de chasse"}, {"rand", "Aléatoire"},
    {"rclt", "Variantes contextuelles obligatoires"}, {"rkrf", "Formes rakar"}, {"rlig", "Ligatures obligatoires"},
    {"rphf", "Formes reph"}, {"rtbd", "Alignement à droite"}, {"rtla", "Variantes de droite à gauche"},
    {"rtlm", "Miroirs de droite à gauche"}, {"ruby", "Formes ruby"}, {"rvrn", "Variantes des variations"},
    {"salt", "Variantes stylistiques"}, {"sinf", "Indices scientifiques"}, {"size", "Taille optique"},
    {"smcp", "Petites capitales"}, {"smpl", "Formes simplifiées"}, {"ssty", "Formes de script mathématique"},
    {"stch", "Étirement de glyphes"}, {"subs", "Indices"}, {"sups", "Exposants"}, {"swsh", "Paraphes"},
    {"titl", "Capitales de titrage"}, {"tjmo", "Jamos finaux"}, {"tnam", "Formes des noms traditionnels"},
    {"tnum", "Chiffres tabulaires"}, {"trad", "Formes traditionnelles"}, {"twid", "Tiers de chasse"},
    {"unic", "Unicase"}, {"valt", "Placement vertical de substitution"}, {"vatu", "Formes vattu"},
    {"vert", "Formes verticales"}, {"vhal", "Demi-chasse verticale de substitution"}, {"vjmo", "Jamos médians"},
    {"vkna", "Kana verticaux"}, {"vkrn", "Crénage vertical"}, {"vpal", "Chasse verticale proportionnelle"},
    {"vrt2", "Variantes verticales et rotation"}, {"vrtr", "Variantes verticales pour la rotation"},
    {"zero", "Zéro barré"},
};

// HarfBuzz's defaults for horizontal text, with the features its script shapers always apply.
const char* const defaultFeatures[] = {
    "abvm", "blwm", "ccmp", "locl", "mark", "mkmk", "rlig", "rvrn", "calt", "clig", "curs", "dist", "kern", "liga",
    "rclt", "isol", "fina", "fin2", "fin3", "medi", "med2", "init", "mset", "nukt", "akhn", "rphf", "rkrf", "pref",
    "blwf", "abvf", "half", "pstf", "vatu", "cjct", "pres", "abvs", "blws", "psts", "haln", "ljmo", "vjmo", "tjmo",
};

const TagName axisNames[] = {
    {"wght", "Graisse"}, {"wdth", "Chasse"}, {"slnt", "Inclinaison"}, {"ital", "Italique"}, {"opsz", "Taille optique"},
};

template <size_t N>
QString lookUp(const TagName (&table)[N], const QByteArray& tag)
{
    for (const TagName& entry : table)
        if (tag == entry.tag)
            return QString::fromUtf8(entry.name);
    return QString();
}

// The number after a two-letter prefix ("ss07" -> 7), or 0.
int numberAfter(const QByteArray& tag, const char* prefix)
{
    if (tag.size() != 4 || !tag.startsWith(prefix) || !std::isdigit(uchar(tag[2])) || !std::isdigit(uchar(tag[3])))
        return 0;
    return (tag[2] - '0') * 10 + (tag[3] - '0');
}

} // namespace

QStringList fsTypeWords(quint16 fsType)
{
    QStringList words;
    if ((fsType & 0x000E) == 0) // bit 0 is reserved
        words << QStringLiteral("Installable");
    if (fsType & 0x0002)
        words << QStringLiteral("Modification interdite");
    if (fsType & 0x0004)
        words << QStringLiteral("Aperçu et impression seulement");
    if (fsType & 0x0008)
        words << QStringLiteral("Modifiable");
    if (fsType & 0x0100)
        words << QStringLiteral("Pas de sous-ensembles");
    if (fsType & 0x0200)
        words << QStringLiteral("Bitmap seulement");
    return words;
}

QString weightWord(double weightClass)
{
    if (!(weightClass >= 1 && weightClass <= 1000))
        return QString();
    const int index = std::clamp(int(std::lround(weightClass / 100.0)), 1, 9) - 1;
    return QString::fromUtf8(weightNames[index]);
}

QString widthWord(int widthClass)
{
    return widthClass >= 1 && widthClass <= 9 ? QString::fromUtf8(widthNames[widthClass - 1]) : QString();
}

int widthClassOfPercent(double percent)
{
    static const double classes[] = {50, 62.5, 75, 87.5, 100, 112.5, 125, 150, 200};
    int best = 0;
    for (int i = 1; i < 9; ++i)
        if (std::abs(classes[i] - percent) < std::abs(classes[best] - percent))
            best = i;
    return best + 1;
}

QString slantWord(int slant)
{
    if (slant >= 110)
        return QStringLiteral("Oblique");
    if (slant >= 100)
        return QStringLiteral("Italique");
    return QStringLiteral("Romain");
}

QString panoseFamilyWord(int digit)
{
    return digit >= 0 && digit < int(std::size(panoseFamilies)) ? QString::fromUtf8(panoseFamilies[digit]) : QString();
}

QString panoseSerifWord(int familyKind, int digit)
{
    if (familyKind != 2 || digit < 0 || digit >= int(std::size(panoseSerifs)))
        return QString();
    return QString::fromUtf8(panoseSerifs[digit]);
}

QString panoseProportionWord(int familyKind, int digit)
{
    if (familyKind != 2 || digit < 0 || digit >= int(std::size(panoseProportions)))
        return QString();
    return QString::fromUtf8(panoseProportions[digit]);
}

QString formatWords(const FormatFacts& facts)
{
    QString words;
    if (!facts.outlines)
        words = facts.container.isEmpty() ? QStringLiteral("Bitmap")
                                          : QStringLiteral("Bitmap (%1)").arg(facts.container);
    else if (facts.container == QLatin1String("CFF"))
        words = facts.cff2 ? QStringLiteral("OpenType CFF2") : QStringLiteral("OpenType CFF");
    else if (facts.container == QLatin1String("CID Type 1"))
        words = QStringLiteral("Type 1 CID");
    else
        words = facts.container.isEmpty() ? QStringLiteral("—") : facts.container;
    if (!facts.wrapper.isEmpty())
        words += QStringLiteral(" (%1)").arg(facts.wrapper);
    if (facts.collection)
        words += QStringLiteral(", collection");
    if (facts.variable)
        words += QStringLiteral(", variable");
    return words;
}

QString featureName(const QByteArray& tag)
{
    if (const int set = numberAfter(tag, "ss"); set >= 1 && set <= 20)
        return QStringLiteral("Jeu stylistique %1").arg(set);
    if (const int variant = numberAfter(tag, "cv"); variant >= 1)
        return QStringLiteral("Variante de caractère %1").arg(variant);
    return lookUp(featureNames, tag);
}

bool featureOnByDefault(const QByteArray& tag)
{
    return std::any_of(std::begin(defaultFeatures), std::end(defaultFeatures),
                       [&](const char* name) { return tag == name; });
}

QString axisName(const QByteArray& tag)
{
    return lookUp(axisNames, tag);
}

QStringList unicodeRangeWords(const std::array<quint32, 4>& ranges)
{
    QStringList words;
    for (int bit = 0; bit < 128; ++bit)
        if (ranges[size_t(bit / 32)] & (1u << (bit % 32)))
            if (const QString word = unicodeRangeWord(bit); !word.isEmpty())
                words << word;
    return words;
}

QStringList codePageWords(const std::array<quint32, 2>& ranges)
{
    QStringList words;
    for (int bit = 0; bit < 64; ++bit)
        if (ranges[size_t(bit / 32)] & (1u << (bit % 32)))
            if (const QString word = codePageWord(bit); !word.isEmpty())
                words << word;
    return words;
}

} // namespace TypoWords
