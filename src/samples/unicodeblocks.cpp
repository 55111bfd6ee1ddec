// The block table: ranges and names from ICU, assigned counts from the general
// category, and our own French names for the blocks people meet most.
#include "samples/unicodeblocks.h"

#include <unicode/uchar.h>

#include <QHash>
#include <algorithm>

namespace UnicodeBlocks {

namespace {

// ICU has no French block names; these follow the French edition of the standard.
const QHash<int, const char*>& frenchNames()
{
    static const QHash<int, const char*> names = {
        {UBLOCK_BASIC_LATIN, "Latin de base"},
        {UBLOCK_LATIN_1_SUPPLEMENT, "Supplément Latin-1"},
        {UBLOCK_LATIN_EXTENDED_A, "Latin étendu A"},
        {UBLOCK_LATIN_EXTENDED_B, "Latin étendu B"},
        {UBLOCK_LATIN_EXTENDED_C, "Latin étendu C"},
        {UBLOCK_LATIN_EXTENDED_D, "Latin étendu D"},
        {UBLOCK_LATIN_EXTENDED_E, "Latin étendu E"},
        {UBLOCK_LATIN_EXTENDED_ADDITIONAL, "Latin étendu additionnel"},
        {UBLOCK_IPA_EXTENSIONS, "Alphabet phonétique international"},
        {UBLOCK_PHONETIC_EXTENSIONS, "Extensions phonétiques"},
        {UBLOCK_PHONETIC_EXTENSIONS_SUPPLEMENT, "Supplément d'extensions phonétiques"},
        {UBLOCK_SPACING_MODIFIER_LETTERS, "Lettres modificatives avec chasse"},
        {UBLOCK_MODIFIER_TONE_LETTERS, "Lettres modificatives de ton"},
        {UBLOCK_COMBINING_DIACRITICAL_MARKS, "Diacritiques"},
        {UBLOCK_COMBINING_DIACRITICAL_MARKS_SUPPLEMENT, "Supplément de diacritiques"},
        {UBLOCK_COMBINING_MARKS_FOR_SYMBOLS, "Diacritiques pour symboles"},
        {UBLOCK_COMBINING_HALF_MARKS, "Demi-signes diacritiques"},
        {UBLOCK_GREEK, "Grec et copte"},
        {UBLOCK_GREEK_EXTENDED, "Grec étendu"},
        {UBLOCK_COPTIC, "Copte"},
        {UBLOCK_CYRILLIC, "Cyrillique"},
        {UBLOCK_CYRILLIC_SUPPLEMENT, "Supplément cyrillique"},
        {UBLOCK_CYRILLIC_EXTENDED_A, "Cyrillique étendu A"},
        {UBLOCK_CYRILLIC_EXTENDED_B, "Cyrillique étendu B"},
        {UBLOCK_ARMENIAN, "Arménien"},
        {UBLOCK_HEBREW, "Hébreu"},
        {UBLOCK_ARABIC, "Arabe"},
        {UBLOCK_ARABIC_SUPPLEMENT, "Supplément arabe"},
        {UBLOCK_ARABIC_EXTENDED_A, "Arabe étendu A"},
        {UBLOCK_ARABIC_PRESENTATION_FORMS_A, "Formes de présentation arabes A"},
        {UBLOCK_ARABIC_PRESENTATION_FORMS_B, "Formes de présentation arabes B"},
        {UBLOCK_SYRIAC, "Syriaque"},
        {UBLOCK_THAANA, "Thâna"},
        {UBLOCK_NKO, "N'ko"},
        {UBLOCK_DEVANAGARI, "Devanagari"},
        {UBLOCK_DEVANAGARI_EXTENDED, "Devanagari étendu"},
        {UBLOCK_BENGALI, "Bengali"},
        {UBLOCK_GURMUKHI, "Gourmoukhi"},
        {UBLOCK_GUJARATI, "Goudjarati"},
        {UBLOCK_ORIYA, "Oriya"},
        {UBLOCK_TAMIL, "Tamoul"},
        {UBLOCK_TELUGU, "Télougou"},
        {UBLOCK_KANNADA, "Kannada"},
        {UBLOCK_MALAYALAM, "Malayalam"},
        {UBLOCK_SINHALA, "Singhalais"},
        {UBLOCK_THAI, "Thaï"},
        {UBLOCK_LAO, "Lao"},
        {UBLOCK_TIBETAN, "Tibétain"},
        {UBLOCK_MYANMAR, "Birman"},
        {UBLOCK_GEORGIAN, "Géorgien"},
        {UBLOCK_GEORGIAN_SUPPLEMENT, "Supplément géorgien"},
        {UBLOCK_ETHIOPIC, "Éthiopien"},
        {UBLOCK_ETHIOPIC_SUPPLEMENT, "Supplément éthiopien"},
        {UBLOCK_CHEROKEE, "Chérokî"},
        {UBLOCK_UNIFIED_CANADIAN_ABORIGINAL_SYLLABICS, "Syllabaires autochtones canadiens"},
        {UBLOCK_OGHAM, "Ogam"},
        {UBLOCK_RUNIC, "Runes"},
        {UBLOCK_KHMER, "Khmer"},
        {UBLOCK_MONGOLIAN, "Mongol"},
        {UBLOCK_GLAGOLITIC, "Glagolitique"},
        {UBLOCK_TIFINAGH, "Tifinagh"},
        {UBLOCK_GOTHIC, "Gotique"},
        {UBLOCK_GENERAL_PUNCTUATION, "Ponctuation générale"},
        {UBLOCK_SUPPLEMENTAL_PUNCTUATION, "Ponctuation supplémentaire"},
        {UBLOCK_SUPERSCRIPTS_AND_SUBSCRIPTS, "Exposants et indices"},
        {UBLOCK_CURRENCY_SYMBOLS, "Symboles monétaires"},
        {UBLOCK_LETTERLIKE_SYMBOLS, "Symboles de type lettre"},
        {UBLOCK_NUMBER_FORMS, "Formes numérales"},
        {UBLOCK_ARROWS, "Flèches"},
        {UBLOCK_SUPPLEMENTAL_ARROWS_A, "Supplément A de flèches"},
        {UBLOCK_SUPPLEMENTAL_ARROWS_B, "Supplément B de flèches"},
        {UBLOCK_SUPPLEMENTAL_ARROWS_C, "Supplément C de flèches"},
        {UBLOCK_MATHEMATICAL_OPERATORS, "Opérateurs mathématiques"},
        {UBLOCK_SUPPLEMENTAL_MATHEMATICAL_OPERATORS, "Opérateurs mathématiques supplémentaires"},
        {UBLOCK_MISCELLANEOUS_MATHEMATICAL_SYMBOLS_A, "Divers symboles mathématiques A"},
        {UBLOCK_MISCELLANEOUS_MATHEMATICAL_SYMBOLS_B, "Divers symboles mathématiques B"},
        {UBLOCK_MATHEMATICAL_ALPHANUMERIC_SYMBOLS, "Symboles mathématiques alphanumériques"},
        {UBLOCK_MISCELLANEOUS_TECHNICAL, "Signes techniques divers"},
        {UBLOCK_CONTROL_PICTURES, "Pictogrammes de commande"},
        {UBLOCK_OPTICAL_CHARACTER_RECOGNITION, "Reconnaissance optique de caractères"},
        {UBLOCK_ENCLOSED_ALPHANUMERICS, "Alphanumériques cerclés"},
        {UBLOCK_ENCLOSED_ALPHANUMERIC_SUPPLEMENT, "Supplément d'alphanumériques cerclés"},
        {UBLOCK_BOX_DRAWING, "Filets"},
        {UBLOCK_BLOCK_ELEMENTS, "Pavés"},
        {UBLOCK_GEOMETRIC_SHAPES, "Formes géométriques"},
        {UBLOCK_GEOMETRIC_SHAPES_EXTENDED, "Formes géométriques étendues"},
        {UBLOCK_MISCELLANEOUS_SYMBOLS, "Symboles divers"},
        {UBLOCK_MISCELLANEOUS_SYMBOLS_AND_ARROWS, "Divers symboles et flèches"},
        {UBLOCK_DINGBATS, "Casseau (dingbats)"},
        {UBLOCK_BRAILLE_PATTERNS, "Braille"},
        {UBLOCK_CJK_RADICALS_SUPPLEMENT, "Supplément des radicaux CJK"},
        {UBLOCK_KANGXI_RADICALS, "Radicaux Kangxi"},
        {UBLOCK_IDEOGRAPHIC_DESCRIPTION_CHARACTERS, "Description idéographique"},
        {UBLOCK_CJK_SYMBOLS_AND_PUNCTUATION, "Symboles et ponctuation CJK"},
        {UBLOCK_HIRAGANA, "Hiragana"},
        {UBLOCK_KATAKANA, "Katakana"},
        {UBLOCK_KATAKANA_PHONETIC_EXTENSIONS, "Extensions phonétiques katakana"},
        {UBLOCK_KANA_SUPPLEMENT, "Supplément kana"},
        {UBLOCK_BOPOMOFO, "Bopomofo"},
        {UBLOCK_BOPOMOFO_EXTENDED, "Bopomofo étendu"},
        {UBLOCK_KANBUN, "Kanboun"},
        {UBLOCK_CJK_STROKES, "Traits CJK"},
        {UBLOCK_ENCLOSED_CJK_LETTERS_AND_MONTHS, "Lettres et mois CJK cerclés"},
        {UBLOCK_ENCLOSED_IDEOGRAPHIC_SUPPLEMENT, "Supplément idéographique cerclé"},
        {UBLOCK_CJK_COMPATIBILITY, "Compatibilité CJK"},
        {UBLOCK_CJK_COMPATIBILITY_FORMS, "Formes de compatibilité CJK"},
        {UBLOCK_CJK_COMPATIBILITY_IDEOGRAPHS, "Idéogrammes de compatibilité CJK"},
        {UBLOCK_CJK_COMPATIBILITY_IDEOGRAPHS_SUPPLEMENT, "Supplément d'idéogrammes de compatibilité CJK"},
        {UBLOCK_CJK_UNIFIED_IDEOGRAPHS, "Idéogrammes unifiés CJK"},
        {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_A, "Idéogrammes unifiés CJK, extension A"},
        {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_B, "Idéogrammes unifiés CJK, extension B"},
        {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_C, "Idéogrammes unifiés CJK, extension C"},
        {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_D, "Idéogrammes unifiés CJK, extension D"},
        {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_E, "Idéogrammes unifiés CJK, extension E"},
        {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_F, "Idéogrammes unifiés CJK, extension F"},
        {UBLOCK_CJK_UNIFIED_IDEOGRAPHS_EXTENSION_G, "Idéogrammes unifiés CJK, extension G"},
        {UBLOCK_HANGUL_JAMO, "Jamos hangul"},
        {UBLOCK_HANGUL_COMPATIBILITY_JAMO, "Jamos de compatibilité hangul"},
        {UBLOCK_HANGUL_JAMO_EXTENDED_A, "Jamos hangul étendus A"},
        {UBLOCK_HANGUL_JAMO_EXTENDED_B, "Jamos hangul étendus B"},
        {UBLOCK_HANGUL_SYLLABLES, "Hangul"},
        {UBLOCK_YI_SYLLABLES, "Syllabes yi"},
        {UBLOCK_YI_RADICALS, "Radicaux yi"},
        {UBLOCK_YIJING_HEXAGRAM_SYMBOLS, "Hexagrammes du Yi-king"},
        {UBLOCK_HIGH_SURROGATES, "Demi-codets hauts"},
        {UBLOCK_HIGH_PRIVATE_USE_SURROGATES, "Demi-codets hauts à usage privé"},
        {UBLOCK_LOW_SURROGATES, "Demi-codets bas"},
        {UBLOCK_PRIVATE_USE_AREA, "Zone à usage privé"},
        {UBLOCK_SUPPLEMENTARY_PRIVATE_USE_AREA_A, "Zone supplémentaire A à usage privé"},
        {UBLOCK_SUPPLEMENTARY_PRIVATE_USE_AREA_B, "Zone supplémentaire B à usage privé"},
        {UBLOCK_ALPHABETIC_PRESENTATION_FORMS, "Formes de présentation alphabétiques"},
        {UBLOCK_VARIATION_SELECTORS, "Sélecteurs de variante"},
        {UBLOCK_VARIATION_SELECTORS_SUPPLEMENT, "Supplément de sélecteurs de variante"},
        {UBLOCK_VERTICAL_FORMS, "Formes verticales"},
        {UBLOCK_SMALL_FORM_VARIANTS, "Petites variantes de forme"},
        {UBLOCK_HALFWIDTH_AND_FULLWIDTH_FORMS, "Formes de demi et pleine chasse"},
        {UBLOCK_SPECIALS, "Caractères spéciaux"},
        {UBLOCK_TAGS, "Étiquettes"},
        {UBLOCK_MUSICAL_SYMBOLS, "Symboles musicaux"},
        {UBLOCK_BYZANTINE_MUSICAL_SYMBOLS, "Symboles musicaux byzantins"},
        {UBLOCK_ANCIENT_GREEK_NUMBERS, "Nombres grecs anciens"},
        {UBLOCK_ANCIENT_SYMBOLS, "Symboles anciens"},
        {UBLOCK_COUNTING_ROD_NUMERALS, "Bâtons à calcul"},
        {UBLOCK_EGYPTIAN_HIEROGLYPHS, "Hiéroglyphes égyptiens"},
        {UBLOCK_CUNEIFORM, "Cunéiforme"},
        {UBLOCK_MAHJONG_TILES, "Tuiles de mah-jong"},
        {UBLOCK_DOMINO_TILES, "Dominos"},
        {UBLOCK_PLAYING_CARDS, "Cartes à jouer"},
        {UBLOCK_EMOTICONS, "Émoticônes (emoji)"},
        {UBLOCK_MISCELLANEOUS_SYMBOLS_AND_PICTOGRAPHS, "Symboles et pictogrammes divers (emoji)"},
        {UBLOCK_TRANSPORT_AND_MAP_SYMBOLS, "Symboles de transport et de cartes (emoji)"},
        {UBLOCK_SUPPLEMENTAL_SYMBOLS_AND_PICTOGRAPHS, "Symboles et pictogrammes supplémentaires (emoji)"},
        {UBLOCK_SYMBOLS_AND_PICTOGRAPHS_EXTENDED_A, "Symboles et pictogrammes étendus A (emoji)"},
        {UBLOCK_ALCHEMICAL_SYMBOLS, "Symboles alchimiques"},
        {UBLOCK_ORNAMENTAL_DINGBATS, "Casseau ornemental"},
    };
    return names;
}

// ICU's long name ("Greek_And_Coptic") written as the standard does ("Greek and Coptic").
QString englishNameOf(int code)
{
    QString name = QString::fromLatin1(u_getPropertyValueName(UCHAR_BLOCK, code, U_LONG_PROPERTY_NAME));
    name.replace(QLatin1Char('_'), QLatin1Char(' '));
    for (const char* word : {" And ", " For ", " Of "})
        name.replace(QLatin1String(word), QString::fromLatin1(word).toLower());
    return name;
}

struct TypeRanges {
    std::vector<Block>* blocks;
};

// Adds a range of one general category to the assigned counts of the blocks it meets.
UBool countAssigned(const void* context, UChar32 start, UChar32 limit, UCharCategory type)
{
    if (type == U_UNASSIGNED)
        return true;
    auto& blocks = *static_cast<const TypeRanges*>(context)->blocks;
    auto it = std::upper_bound(blocks.begin(), blocks.end(), char32_t(start),
                               [](char32_t code, const Block& block) { return code < block.first; });
    if (it != blocks.begin())
        --it;
    for (; it != blocks.end() && it->first < char32_t(limit); ++it) {
        const char32_t from = std::max(it->first, char32_t(start));
        const char32_t to = std::min(char32_t(it->last + 1), char32_t(limit));
        if (from < to)
            it->assigned += int(to - from);
    }
    return true;
}

std::vector<Block> buildBlocks()
{
    std::vector<Block> blocks;
    // Blocks start and end on multiples of 16 code points.
    int previous = -1;
    for (char32_t code = 0; code < 0x110000; code += 16) {
        const int block = ublock_getCode(UChar32(code));
        if (block != previous && block > 0) {
            Block entry;
            entry.code = block;
            entry.first = code;
            entry.englishName = englishNameOf(block);
            entry.frenchName = QString::fromUtf8(frenchNames().value(block, ""));
            blocks.push_back(entry);
        }
        if (block > 0)
            blocks.back().last = code + 15;
        previous = block;
    }
    TypeRanges context{&blocks};
    u_enumCharTypes(&countAssigned, &context);
    return blocks;
}

} // namespace

const std::vector<Block>& all()
{
    static const std::vector<Block> blocks = buildBlocks();
    return blocks;
}

const Block* blockOf(char32_t code)
{
    const auto& blocks = all();
    auto it = std::upper_bound(blocks.begin(), blocks.end(), code,
                               [](char32_t c, const Block& block) { return c < block.first; });
    if (it == blocks.begin())
        return nullptr;
    --it;
    return code <= it->last ? &*it : nullptr;
}

bool isAssigned(char32_t code)
{
    return code <= 0x10FFFF && u_charType(UChar32(code)) != U_UNASSIGNED;
}

std::vector<char32_t> assignedIn(const Block& block)
{
    std::vector<char32_t> codes;
    codes.reserve(std::size_t(block.assigned));
    for (char32_t code = block.first; code <= block.last; ++code)
        if (isAssigned(code))
            codes.push_back(code);
    return codes;
}

std::vector<Coverage> coverage(const std::vector<char32_t>& sortedCodes)
{
    std::vector<Coverage> result;
    const auto& blocks = all();
    auto code = sortedCodes.begin();
    for (const Block& block : blocks) {
        code = std::lower_bound(code, sortedCodes.end(), block.first);
        if (code == sortedCodes.end())
            break;
        const auto end = std::upper_bound(code, sortedCodes.end(), block.last);
        if (end != code)
            result.push_back({&block, int(end - code)});
        code = end;
    }
    return result;
}

QString entryText(const Coverage& coverage)
{
    const QString code = QStringLiteral("%1").arg(uint(coverage.block->first), 4, 16, QLatin1Char('0')).toUpper();
    return QStringLiteral("U+%1 %2 %3/%4").arg(code, coverage.block->name()).arg(coverage.mapped).arg(coverage.block->assigned);
}

} // namespace UnicodeBlocks
