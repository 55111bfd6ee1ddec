// Formats of one code point: text forms from the code, names and properties from
// ICU, HTML entity names from libxml2's HTML entity table.
#include "samples/unicodeformats.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <libxml/HTMLparser.h>

#include <QHash>
#include <QStringList>

namespace UnicodeFormats {

namespace {

QString hex(uint value, int digits)
{
    return QStringLiteral("%1").arg(value, digits, 16, QLatin1Char('0')).toUpper();
}

QByteArray utf8Of(char32_t code)
{
    return characterText(code).toUtf8();
}

const QHash<int, const char*>& frenchCategories()
{
    static const QHash<int, const char*> labels = {
        {U_UNASSIGNED, "Non attribué"},
        {U_UPPERCASE_LETTER, "Lettre majuscule"},
        {U_LOWERCASE_LETTER, "Lettre minuscule"},
        {U_TITLECASE_LETTER, "Lettre de titre"},
        {U_MODIFIER_LETTER, "Lettre modificative"},
        {U_OTHER_LETTER, "Autre lettre"},
        {U_NON_SPACING_MARK, "Diacritique sans chasse"},
        {U_ENCLOSING_MARK, "Diacritique englobant"},
        {U_COMBINING_SPACING_MARK, "Diacritique avec chasse"},
        {U_DECIMAL_DIGIT_NUMBER, "Chiffre décimal"},
        {U_LETTER_NUMBER, "Nombre en lettre"},
        {U_OTHER_NUMBER, "Autre nombre"},
        {U_SPACE_SEPARATOR, "Espace"},
        {U_LINE_SEPARATOR, "Séparateur de ligne"},
        {U_PARAGRAPH_SEPARATOR, "Séparateur de paragraphe"},
        {U_CONTROL_CHAR, "Caractère de commande"},
        {U_FORMAT_CHAR, "Caractère de mise en forme"},
        {U_PRIVATE_USE_CHAR, "Usage privé"},
        {U_SURROGATE, "Demi-codet"},
        {U_DASH_PUNCTUATION, "Tiret"},
        {U_START_PUNCTUATION, "Ponctuation ouvrante"},
        {U_END_PUNCTUATION, "Ponctuation fermante"},
        {U_CONNECTOR_PUNCTUATION, "Ponctuation de liaison"},
        {U_OTHER_PUNCTUATION, "Autre ponctuation"},
        {U_MATH_SYMBOL, "Symbole mathématique"},
        {U_CURRENCY_SYMBOL, "Symbole monétaire"},
        {U_MODIFIER_SYMBOL, "Symbole modificatif"},
        {U_OTHER_SYMBOL, "Autre symbole"},
        {U_INITIAL_PUNCTUATION, "Guillemet ouvrant"},
        {U_FINAL_PUNCTUATION, "Guillemet fermant"},
    };
    return labels;
}

const QHash<int, const char*>& frenchScripts()
{
    static const QHash<int, const char*> names = {
        {USCRIPT_COMMON, "Commune"}, {USCRIPT_INHERITED, "Héritée"}, {USCRIPT_UNKNOWN, "Inconnue"},
        {USCRIPT_LATIN, "Latine"}, {USCRIPT_GREEK, "Grecque"}, {USCRIPT_CYRILLIC, "Cyrillique"},
        {USCRIPT_ARMENIAN, "Arménienne"}, {USCRIPT_HEBREW, "Hébraïque"}, {USCRIPT_ARABIC, "Arabe"},
        {USCRIPT_SYRIAC, "Syriaque"}, {USCRIPT_THAANA, "Thâna"}, {USCRIPT_DEVANAGARI, "Devanagari"},
        {USCRIPT_BENGALI, "Bengali"}, {USCRIPT_GURMUKHI, "Gourmoukhi"}, {USCRIPT_GUJARATI, "Goudjarati"},
        {USCRIPT_ORIYA, "Oriya"}, {USCRIPT_TAMIL, "Tamoule"}, {USCRIPT_TELUGU, "Télougou"},
        {USCRIPT_KANNADA, "Kannada"}, {USCRIPT_MALAYALAM, "Malayalam"}, {USCRIPT_SINHALA, "Singhalaise"},
        {USCRIPT_THAI, "Thaïe"}, {USCRIPT_LAO, "Lao"}, {USCRIPT_TIBETAN, "Tibétaine"},
        {USCRIPT_MYANMAR, "Birmane"}, {USCRIPT_GEORGIAN, "Géorgienne"}, {USCRIPT_HANGUL, "Hangul"},
        {USCRIPT_ETHIOPIC, "Éthiopienne"}, {USCRIPT_CHEROKEE, "Chérokî"}, {USCRIPT_HAN, "Idéogrammes han"},
        {USCRIPT_HIRAGANA, "Hiragana"}, {USCRIPT_KATAKANA, "Katakana"}, {USCRIPT_BOPOMOFO, "Bopomofo"},
        {USCRIPT_BRAILLE, "Braille"}, {USCRIPT_RUNIC, "Runique"}, {USCRIPT_OGHAM, "Ogamique"},
        {USCRIPT_MONGOLIAN, "Mongole"}, {USCRIPT_KHMER, "Khmère"}, {USCRIPT_YI, "Yi"},
        {USCRIPT_COPTIC, "Copte"}, {USCRIPT_GOTHIC, "Gotique"}, {USCRIPT_GLAGOLITIC, "Glagolitique"},
        {USCRIPT_TIFINAGH, "Tifinagh"}, {USCRIPT_NKO, "N'ko"}, {USCRIPT_CANADIAN_ABORIGINAL, "Syllabaire autochtone canadien"},
    };
    return names;
}

} // namespace

QString characterText(char32_t code)
{
    return QString::fromUcs4(&code, 1);
}

QString uPlusCode(char32_t code)
{
    return QStringLiteral("U+") + hex(uint(code), 4);
}

QString decimalText(char32_t code)
{
    return QString::number(uint(code));
}

QString numericEntity(char32_t code)
{
    return QStringLiteral("&#%1;").arg(uint(code));
}

QString entityName(char32_t code)
{
    const htmlEntityDesc* entity = htmlEntityValueLookup(unsigned(code));
    return entity && entity->name ? QString::fromLatin1(entity->name) : QString();
}

QString htmlEntity(char32_t code)
{
    const QString name = entityName(code);
    return name.isEmpty() ? numericEntity(code) : QLatin1Char('&') + name + QLatin1Char(';');
}

int codeOfEntityName(const QString& name)
{
    if (name.isEmpty() || name.size() > 32)
        return -1;
    const QByteArray latin = name.toLatin1();
    const htmlEntityDesc* entity = htmlEntityLookup(reinterpret_cast<const xmlChar*>(latin.constData()));
    if (!entity)
        return -1;
    return int(entity->value);
}

QString utf8Escapes(char32_t code)
{
    QString text;
    for (const char byte : utf8Of(code))
        text += QStringLiteral("\\x") + hex(uchar(byte), 2);
    return text;
}

QString utf8Bytes(char32_t code)
{
    QStringList bytes;
    for (const char byte : utf8Of(code))
        bytes << hex(uchar(byte), 2);
    return bytes.join(QLatin1Char(' '));
}

QString utf16Units(char32_t code)
{
    QStringList units;
    for (const QChar unit : characterText(code))
        units << hex(unit.unicode(), 4);
    return units.join(QLatin1Char(' '));
}

QString characterName(char32_t code)
{
    char buffer[256];
    for (const UCharNameChoice choice : {U_UNICODE_CHAR_NAME, U_EXTENDED_CHAR_NAME}) {
        UErrorCode status = U_ZERO_ERROR;
        const int32_t length = u_charName(UChar32(code), choice, buffer, sizeof buffer, &status);
        if (U_SUCCESS(status) && length > 0)
            return QString::fromLatin1(buffer, length);
    }
    return QString();
}

QString scriptName(char32_t code)
{
    UErrorCode status = U_ZERO_ERROR;
    const UScriptCode script = uscript_getScript(UChar32(code), &status);
    if (U_FAILURE(status))
        return QString();
    if (const char* french = frenchScripts().value(script, nullptr))
        return QString::fromUtf8(french);
    return QString::fromLatin1(uscript_getName(script)).replace(QLatin1Char('_'), QLatin1Char(' '));
}

QString categoryLabel(char32_t code)
{
    const int category = u_charType(UChar32(code));
    const QString shortName =
        QString::fromLatin1(u_getPropertyValueName(UCHAR_GENERAL_CATEGORY, category, U_SHORT_PROPERTY_NAME));
    return QStringLiteral("%1 (%2)").arg(QString::fromUtf8(frenchCategories().value(category, "")), shortName);
}

} // namespace UnicodeFormats
