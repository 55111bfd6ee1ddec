// Searching characters by the words of their Unicode names: an index of every name
// ICU knows, built once per program in a worker thread and then only read.
#pragma once

#include <QObject>
#include <QStringList>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

class NameIndex {
public:
    // Reads every character name from ICU (about 150,000 of them): a few tens of
    // milliseconds, so the window builds it off the GUI thread.
    static std::shared_ptr<const NameIndex> build();

    // The code points, in order, whose name has for each of the words a word that
    // starts with it, case ignored ("per mille" finds PER MILLE SIGN). No words, or a
    // word that is not plain ASCII letters and digits, find nothing.
    std::vector<char32_t> find(const QStringList& words) const;
    // How many different words the names hold.
    std::size_t wordCount() const { return m_words.size(); }

private:
    std::vector<std::string> m_words;               // upper case, sorted
    std::vector<std::vector<char32_t>> m_postings;  // per word, the code points in order
};

// The program's one name index: asked for when a search first needs names, built in
// the global thread pool, announced by ready() in the thread the loader lives in.
class NameIndexLoader : public QObject {
    Q_OBJECT
public:
    // Created on first use in the calling thread (the GUI thread).
    static NameIndexLoader* instance();
    // The index, or null while it is not built yet.
    std::shared_ptr<const NameIndex> index() const;
    // Starts the build unless it is done or under way.
    void request();

Q_SIGNALS:
    void ready();

private:
    using QObject::QObject;
    void finished(std::shared_ptr<const NameIndex> index);

    mutable std::mutex m_mutex;
    std::shared_ptr<const NameIndex> m_index;
    bool m_started = false;
};
