// The French names of the OS/2 table's Unicode range bits (0..122) and code-page bits
// (0..63), one table each, indexed by bit; reserved bits are empty.
#include "fontfile/typowords.h"

#include <iterator>

namespace TypoWords {

namespace {

const char* const unicodeRanges[] = {
    "Latin de base", "Supplément Latin-1", "Latin étendu A", "Latin étendu B", "Alphabet phonétique international",
    "Lettres modificatives avec chasse", "Diacritiques", "Grec et copte", "Copte", "Cyrillique", // 0-9
    "Arménien", "Hébreu", "Vaï", "Arabe", "N'ko", "Dévanagari", "Bengali", "Gourmoukhî", "Goudjarati", "Oriya", // 10-19
    "Tamoul", "Télougou", "Kannada", "Malayalam", "Thaï", "Lao", "Géorgien", "Balinais", "Jamos hangûl",
    "Latin étendu additionnel", // 20-29
    "Grec étendu", "Ponctuation générale", "Exposants et indices", "Symboles monétaires",
    "Signes combinatoires pour symboles", "Symboles de type lettre", "Formes numérales", "Flèches",
    "Opérateurs mathématiques", "Signes techniques divers", // 30-39
    "Pictogrammes de commande", "Reconnaissance optique de caractères", "Alphanumériques cerclés", "Filets",
    "Pavés", "Formes géométriques", "Symboles divers", "Casseau", "Symboles et ponctuation CJC", "Hiragana", // 40-49
    "Katakana", "Bopomofo", "Jamos de compatibilité hangûl", "Phags-pa", "Lettres et mois CJC cerclés",
    "Compatibilité CJC", "Syllabes hangûl", "Hors du plan multilingue de base", "Phénicien",
    "Idéogrammes unifiés CJC", // 50-59
    "Zone à usage privé", "Traits et idéogrammes de compatibilité CJC", "Formes de présentation alphabétiques",
    "Formes de présentation arabes A", "Demi-signes combinatoires", "Formes verticales", "Petites variantes de formes",
    "Formes de présentation arabes B", "Formes de demi et pleine chasse", "Caractères spéciaux", // 60-69
    "Tibétain", "Syriaque", "Thâna", "Singhalais", "Birman", "Éthiopien", "Chérokî",
    "Syllabaires autochtones canadiens", "Ogam", "Runes", // 70-79
    "Khmer", "Mongol", "Braille", "Yi", "Tagal, hanounóo, bouhid, tagbanoua", "Ancien italique", "Gotique",
    "Déséret", "Symboles musicaux", "Symboles mathématiques alphanumériques", // 80-89
    "Zones supplémentaires à usage privé", "Sélecteurs de variante", "Étiquettes", "Limbou", "Taï-le",
    "Nouveau taï-lue", "Bouguis", "Glagolitique", "Tifinagh", "Hexagrammes du Yi-king", // 90-99
    "Sylotî nâgrî", "Linéaire B", "Nombres grecs anciens", "Ougaritique", "Vieux perse", "Shavien", "Osmanya",
    "Syllabaire chypriote", "Kharochthî", "Symboles du Tai Xuan Jing", // 100-109
    "Cunéiforme", "Bâtons de comptage", "Soundanais", "Lepcha", "Ol tchiki", "Saurachtra", "Kayah li", "Redjang",
    "Cham", "Symboles anciens", // 110-119
    "Disque de Phaistos", "Carien, lycien, lydien", "Dominos et tuiles de mah-jong", // 120-122
};

struct CodePage {
    int bit;
    const char* name;
};

const CodePage codePages[] = {
    {0, "1252 Latin 1"}, {1, "1250 Latin 2 : Europe de l'Est"}, {2, "1251 Cyrillique"}, {3, "1253 Grec"},
    {4, "1254 Turc"}, {5, "1255 Hébreu"}, {6, "1256 Arabe"}, {7, "1257 Balte"}, {8, "1258 Vietnamien"},
    {16, "874 Thaï"}, {17, "932 Japonais (JIS)"}, {18, "936 Chinois simplifié"}, {19, "949 Coréen (Wansung)"},
    {20, "950 Chinois traditionnel"}, {21, "1361 Coréen (Johab)"},
    {29, "Jeu de caractères Macintosh (romain US)"}, {30, "Jeu de caractères OEM"},
    {31, "Jeu de caractères Symbole"},
    {48, "869 Grec IBM"}, {49, "866 Russe MS-DOS"}, {50, "865 Nordique MS-DOS"}, {51, "864 Arabe"},
    {52, "863 Français canadien MS-DOS"}, {53, "862 Hébreu"}, {54, "861 Islandais MS-DOS"},
    {55, "860 Portugais MS-DOS"}, {56, "857 Turc IBM"}, {57, "855 Cyrillique IBM"}, {58, "852 Latin 2"},
    {59, "775 Balte MS-DOS"}, {60, "737 Grec"}, {61, "708 Arabe (ASMO 708)"},
    {62, "850 Europe de l'Ouest, Latin 1"}, {63, "437 États-Unis"},
};

} // namespace

QString unicodeRangeWord(int bit)
{
    return bit >= 0 && bit < int(std::size(unicodeRanges)) ? QString::fromUtf8(unicodeRanges[bit]) : QString();
}

QString codePageWord(int bit)
{
    for (const CodePage& page : codePages)
        if (page.bit == bit)
            return QString::fromUtf8(page.name);
    return QString();
}

} // namespace TypoWords
