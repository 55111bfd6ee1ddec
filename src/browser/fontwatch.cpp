// Watching the font folders and bringing fontconfig and Qt up to date.
#include "browser/fontwatch.h"

#include "browser/worker.h"

#include <QFileSystemWatcher>
#include <QFontDatabase>
#include <QTimer>
#include <fontconfig/fontconfig.h>
#include <sys/stat.h>

namespace {

// What a check found: a fresh configuration when the fonts changed (else nullptr), the
// folders to watch and their stamps.
struct CheckResult {
    FcConfig* fresh = nullptr;
    QStringList folders;
    FontWatch::Stamps stamps;
    bool stale = false;
};

QStringList foldersOf(FcConfig* config)
{
    QStringList folders;
    FcStrList* list = FcConfigGetFontDirs(config);
    while (FcChar8* dir = FcStrListNext(list))
        folders.append(QString::fromLocal8Bit(reinterpret_cast<const char*>(dir)));
    FcStrListDone(list);
    return folders;
}

qint64 modifiedNs(const QByteArray& path, bool* exists)
{
    struct stat info {};
    *exists = ::stat(path.constData(), &info) == 0;
    return *exists ? qint64(info.st_mtim.tv_sec) * 1000000000 + info.st_mtim.tv_nsec : 0;
}

// A file whose registration makes Qt read the font database again: any TrueType or
// OpenType file of the configuration.
QString anyFontFile(FcConfig* config)
{
    FcFontSet* fonts = FcConfigGetFonts(config, FcSetSystem);
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        FcChar8* file = nullptr;
        if (FcPatternGetString(fonts->fonts[i], FC_FILE, 0, &file) != FcResultMatch || !file)
            continue;
        const QString path = QString::fromLocal8Bit(reinterpret_cast<const char*>(file));
        if (path.endsWith(QLatin1String(".ttf"), Qt::CaseInsensitive) || path.endsWith(QLatin1String(".otf"), Qt::CaseInsensitive))
            return path;
    }
    return QString();
}

} // namespace

FontWatch::FontWatch(QObject* parent) : QObject(parent)
{
    setObjectName(QStringLiteral("FontWatch"));
    m_settle = new QTimer(this);
    m_settle->setSingleShot(true);
    // Copying a font takes a moment: the folder is looked at once it has settled.
    m_settle->setInterval(200);
    connect(m_settle, &QTimer::timeout, this, &FontWatch::check);
}

FontWatch::~FontWatch() = default;

QStringList FontWatch::fontFolders()
{
    FcConfig* config = FcConfigReference(nullptr);
    const QStringList folders = config ? foldersOf(config) : QStringList();
    if (config)
        FcConfigDestroy(config);
    return folders;
}

FontWatch::Stamps FontWatch::stampsOf(const QStringList& folders)
{
    Stamps stamps;
    for (const QString& folder : folders) {
        // A folder that does not exist yet is watched through its nearest parent.
        QString path = folder;
        while (!path.isEmpty()) {
            bool exists = false;
            const qint64 ns = modifiedNs(path.toLocal8Bit(), &exists);
            if (exists) {
                stamps.insert(path, ns);
                break;
            }
            const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
            path = slash > 0 ? path.left(slash) : QString();
        }
    }
    return stamps;
}

void FontWatch::start()
{
    const quint64 generation = m_generation;
    Worker::run<CheckResult>(
        this,
        [] {
            CheckResult result;
            result.folders = fontFolders();
            result.stamps = stampsOf(result.folders);
            // Fonts may have come between loading the configuration and these stamps.
            FcConfig* current = FcConfigReference(nullptr);
            result.stale = current && !FcConfigUptoDate(current);
            if (current)
                FcConfigDestroy(current);
            return result;
        },
        [this, generation](CheckResult result) {
            if (generation != m_generation)
                return;
            watch(result.folders, result.stamps);
            if (result.stale)
                check();
        });
}

QStringList FontWatch::watchedFolders() const
{
    return m_watcher ? m_watcher->directories() : QStringList();
}

void FontWatch::watch(const QStringList& folders, const Stamps& stamps)
{
    m_folders = folders;
    m_stamps = stamps;
    if (!m_watcher) {
        m_watcher = new QFileSystemWatcher(this);
        connect(m_watcher, &QFileSystemWatcher::directoryChanged, m_settle, qOverload<>(&QTimer::start));
    }
    const QStringList old = m_watcher->directories();
    QStringList wanted = stamps.keys();
    QStringList dropped;
    for (const QString& path : old) {
        if (!stamps.contains(path))
            dropped.append(path);
    }
    if (!dropped.isEmpty())
        m_watcher->removePaths(dropped);
    wanted.removeIf([&old](const QString& path) { return old.contains(path); });
    if (!wanted.isEmpty())
        m_watcher->addPaths(wanted);
}

void FontWatch::check()
{
    if (m_checking) {
        m_checkAgain = true;
        return;
    }
    m_checking = true;
    const quint64 generation = m_generation;
    const QStringList folders = m_folders;
    const Stamps base = m_stamps;
    Worker::run<CheckResult>(
        this,
        [folders, base] {
            CheckResult result;
            result.folders = folders;
            result.stamps = stampsOf(folders);
            FcConfig* current = FcConfigReference(nullptr);
            // fontconfig judges by whole seconds; the stamps catch a change within one.
            const bool changed = result.stamps != base || (current && !FcConfigUptoDate(current));
            if (current)
                FcConfigDestroy(current);
            if (changed) {
                result.fresh = FcInitLoadConfigAndFonts();
                if (result.fresh) {
                    result.folders = foldersOf(result.fresh);
                    const Stamps after = stampsOf(result.folders);
                    for (auto it = after.cbegin(); it != after.cend(); ++it)
                        result.stamps.insert(it.key(), result.stamps.value(it.key(), it.value()));
                }
            }
            return result;
        },
        [this, generation](CheckResult result) { adopt(result.fresh, result.folders, result.stamps, generation); });
}

void FontWatch::adopt(FcConfig* fresh, const QStringList& folders, const Stamps& stamps, quint64 generation)
{
    m_checking = false;
    if (generation != m_generation) {
        if (fresh)
            FcConfigDestroy(fresh); // refreshNow went first
    } else if (fresh) {
        ++m_generation;
        FcConfigSetCurrent(fresh);
        FcConfigDestroy(fresh); // the current configuration holds its own reference
        reloadQtFonts();
        watch(folders, stamps);
        emit fontsChanged();
    } else {
        m_stamps = stamps;
    }
    if (m_checkAgain) {
        m_checkAgain = false;
        check();
    }
}

void FontWatch::refreshNow()
{
    ++m_generation;
    const Stamps before = stampsOf(m_folders);
    FcConfig* fresh = FcInitLoadConfigAndFonts();
    if (!fresh)
        return;
    FcConfigSetCurrent(fresh);
    FcConfigDestroy(fresh);
    reloadQtFonts();
    const QStringList folders = fontFolders();
    Stamps stamps = stampsOf(folders);
    for (auto it = before.cbegin(); it != before.cend(); ++it)
        stamps.insert(it.key(), it.value());
    if (m_watcher || !m_folders.isEmpty())
        watch(folders, stamps);
    emit fontsChanged();
}

void FontWatch::reloadQtFonts()
{
    // Qt reads the font database again when an application font is removed; the fonts
    // it registered for the program are registered again in the new configuration.
    FcConfig* config = FcConfigReference(nullptr);
    const QString file = config ? anyFontFile(config) : QString();
    if (config)
        FcConfigDestroy(config);
    const int id = file.isEmpty() ? -1 : QFontDatabase::addApplicationFont(file);
    if (id >= 0)
        QFontDatabase::removeApplicationFont(id);
    (void)QFontDatabase::families(); // read now, before the list shows the new families
}
