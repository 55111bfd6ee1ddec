// The name index: words of ICU's character names mapped to the code points that carry
// them, searched by word prefixes; and the loader that builds it once, off the GUI thread.
#include "samples/unicodenames.h"

#include <unicode/uchar.h>

#include <QCoreApplication>
#include <QPointer>
#include <QThreadPool>
#include <algorithm>
#include <cstdio>
#include <numeric>
#include <string_view>
#include <unordered_map>

namespace {

constexpr std::size_t BitWords = 0x110000 / 64;

struct Builder {
    std::unordered_map<std::string, std::uint32_t> ids;
    std::vector<std::string> words;
    std::vector<std::vector<char32_t>> postings;
    std::string token;

    void add(std::string_view word, char32_t code)
    {
        token.assign(word);
        auto [it, inserted] = ids.try_emplace(token, std::uint32_t(words.size()));
        if (inserted) {
            words.push_back(token);
            postings.emplace_back();
        }
        auto& list = postings[it->second];
        if (list.empty() || list.back() != code) // a word twice in one name counts once
            list.push_back(code);
    }
};

bool isHexOf(std::string_view word, char32_t code)
{
    char buffer[16];
    const int length = std::snprintf(buffer, sizeof buffer, "%04X", unsigned(code));
    return word == std::string_view(buffer, std::size_t(length));
}

// Splits a name into words at blanks and hyphens. The code written out at the end of
// the algorithmic names ("CJK UNIFIED IDEOGRAPH-4E00") is no word: codes are searched
// as codes.
UBool addName(void* context, UChar32 code, UCharNameChoice, const char* name, int32_t length)
{
    auto* builder = static_cast<Builder*>(context);
    const std::string_view text(name, std::size_t(length));
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find_first_of(" -", start);
        if (end == std::string_view::npos)
            end = text.size();
        const std::string_view word = text.substr(start, end - start);
        if (!word.empty() && !(end == text.size() && isHexOf(word, char32_t(code))))
            builder->add(word, char32_t(code));
        start = end + 1;
    }
    return true;
}

bool asciiWord(const QString& word, std::string& out)
{
    out.clear();
    for (const QChar c : word) {
        if (c.unicode() > 0x7F || !c.isLetterOrNumber())
            return false;
        out.push_back(char(c.toUpper().unicode()));
    }
    return !out.empty();
}

} // namespace

std::shared_ptr<const NameIndex> NameIndex::build()
{
    Builder builder;
    builder.words.reserve(40000);
    UErrorCode status = U_ZERO_ERROR;
    u_enumCharNames(0, 0x110000, &addName, &builder, U_UNICODE_CHAR_NAME, &status);

    auto index = std::make_shared<NameIndex>();
    std::vector<std::uint32_t> order(builder.words.size());
    std::iota(order.begin(), order.end(), 0u);
    std::sort(order.begin(), order.end(),
              [&](std::uint32_t a, std::uint32_t b) { return builder.words[a] < builder.words[b]; });
    index->m_words.reserve(order.size());
    index->m_postings.reserve(order.size());
    for (const std::uint32_t id : order) {
        index->m_words.push_back(std::move(builder.words[id]));
        index->m_postings.push_back(std::move(builder.postings[id]));
    }
    return index;
}

std::vector<char32_t> NameIndex::find(const QStringList& words) const
{
    std::vector<char32_t> found;
    if (words.isEmpty())
        return found;
    std::vector<std::uint64_t> all(BitWords, ~std::uint64_t(0));
    std::vector<std::uint64_t> matches(BitWords);
    std::string prefix;
    for (const QString& word : words) {
        if (!asciiWord(word, prefix))
            return found;
        std::fill(matches.begin(), matches.end(), 0);
        for (auto it = std::lower_bound(m_words.begin(), m_words.end(), prefix);
             it != m_words.end() && it->compare(0, prefix.size(), prefix) == 0; ++it)
            for (const char32_t code : m_postings[std::size_t(it - m_words.begin())])
                matches[code / 64] |= std::uint64_t(1) << (code % 64);
        for (std::size_t i = 0; i < BitWords; ++i)
            all[i] &= matches[i];
    }
    for (std::size_t i = 0; i < BitWords; ++i)
        for (std::uint64_t bits = all[i]; bits != 0; bits &= bits - 1)
            found.push_back(char32_t(i * 64 + std::size_t(__builtin_ctzll(bits))));
    return found;
}

NameIndexLoader* NameIndexLoader::instance()
{
    static QPointer<NameIndexLoader> loader;
    if (!loader)
        loader = new NameIndexLoader(QCoreApplication::instance());
    return loader;
}

std::shared_ptr<const NameIndex> NameIndexLoader::index() const
{
    const std::lock_guard lock(m_mutex);
    return m_index;
}

void NameIndexLoader::request()
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_started)
            return;
        m_started = true;
    }
    // The loader belongs to the application, which waits for the global pool's tasks
    // before it deletes its children: the queued call always finds it alive.
    NameIndexLoader* self = this;
    QThreadPool::globalInstance()->start([self] {
        auto index = NameIndex::build();
        QMetaObject::invokeMethod(self, [self, index] { self->finished(index); }, Qt::QueuedConnection);
    });
}

void NameIndexLoader::finished(std::shared_ptr<const NameIndex> index)
{
    {
        const std::lock_guard lock(m_mutex);
        m_index = std::move(index);
    }
    Q_EMIT ready();
}
