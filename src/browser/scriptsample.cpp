// Script samples, by fontconfig language, each the language's name and a greeting.
#include "browser/scriptsample.h"

namespace ScriptSample {

namespace {

struct Sample {
    const char* language;
    const char* text;
};

const Sample samples[] = {
    {"lo", "ພາສາລາວ ສະບາຍດີ"},
    {"th", "ภาษาไทย สวัสดี"},
    {"km", "ភាសាខ្មែរ ជំរាបសួរ"},
    {"my", "မြန်မာဘာသာ မင်္ဂလာပါ"},
    {"ar", "اللغة العربية مرحبا"},
    {"fa", "زبان فارسی سلام"},
    {"ur", "اردو سلام"},
    {"he", "עברית שלום"},
    {"el", "Ελληνικά Γειά σου"},
    {"ru", "Русский язык Привет"},
    {"uk", "Українська мова Привіт"},
    {"bg", "Български език Здравей"},
    {"sr", "Српски језик Здраво"},
    {"ka", "ქართული გამარჯობა"},
    {"hy", "Հայերեն Բարեւ"},
    {"am", "አማርኛ ሰላም"},
    {"hi", "हिन्दी नमस्ते"},
    {"mr", "मराठी नमस्कार"},
    {"bn", "বাংলা নমস্কার"},
    {"pa", "ਪੰਜਾਬੀ ਸਤ ਸ੍ਰੀ ਅਕਾਲ"},
    {"gu", "ગુજરાતી નમસ્તે"},
    {"or", "ଓଡ଼ିଆ ନମସ୍କାର"},
    {"ta", "தமிழ் வணக்கம்"},
    {"te", "తెలుగు నమస్కారం"},
    {"kn", "ಕನ್ನಡ ನಮಸ್ಕಾರ"},
    {"ml", "മലയാളം നമസ്കാരം"},
    {"si", "සිංහල ආයුබෝවන්"},
    {"bo", "བོད་ཡིག བཀྲ་ཤིས་བདེ་ལེགས།"},
    {"dv", "ދިވެހި"},
    {"iu", "ᐃᓄᒃᑎᑐᑦ"},
    {"chr", "ᏣᎳᎩ ᎣᏏᏲ"},
    {"ja", "日本語 こんにちは"},
    {"zh-cn", "中文 你好"},
    {"zh-tw", "中文 你好"},
    {"zh-hk", "中文 你好"},
    {"ko", "한국어 안녕하세요"},
};

bool holdsAll(const FontSystem::Coverage& face, const QString& text)
{
    for (const char32_t code : text.toUcs4())
        if (code != U' ' && !face.contains(code))
            return false;
    return true;
}

} // namespace

bool lacksLettersOf(const QString& text, const std::function<bool(char32_t)>& faceHas)
{
    bool letters = false;
    for (const char32_t code : text.toUcs4()) {
        if (!QChar::isLetter(code))
            continue;
        if (faceHas(code))
            return false;
        letters = true;
    }
    return letters;
}

QString sampleFor(const FontSystem::Coverage& face)
{
    for (const Sample& sample : samples) {
        const QString text = QString::fromUtf8(sample.text);
        if (face.languages.contains(QLatin1String(sample.language)) && holdsAll(face, text))
            return text;
    }
    return face.firstCharacters(SymbolSampleLength);
}

} // namespace ScriptSample
