// FontWatch: keeps the program's view of the installed fonts current. It watches the
// font folders fontconfig reads (inotify through QFileSystemWatcher, with fontconfig's
// own FcConfigUptoDate as the judge), loads a fresh fontconfig configuration off the
// GUI thread when they change, makes it current, makes Qt's font database read it
// again, and then tells. No widgets.
#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>

class QFileSystemWatcher;
class QTimer;
struct _FcConfig;

class FontWatch : public QObject {
    Q_OBJECT
public:
    explicit FontWatch(QObject* parent = nullptr);
    ~FontWatch() override;

    // Starts watching (the folder list is read off the GUI thread).
    void start();
    // Reloads fontconfig's configuration and Qt's font database now, on this thread.
    void refreshNow();
    // The folders being watched.
    QStringList watchedFolders() const;

    // Modification times (ns) of the font folders, and of the nearest existing parent
    // of a folder that does not exist yet.
    using Stamps = QHash<QString, qint64>;
    static Stamps stampsOf(const QStringList& folders);
    // The font folders of the current configuration, existing or not.
    static QStringList fontFolders();

Q_SIGNALS:
    // fontconfig and Qt now know the fonts as they are installed.
    void fontsChanged();

private:
    void watch(const QStringList& folders, const Stamps& stamps);
    void check();
    void adopt(_FcConfig* fresh, const QStringList& folders, const Stamps& stamps, quint64 generation);
    static void reloadQtFonts();

    QFileSystemWatcher* m_watcher = nullptr;
    QTimer* m_settle = nullptr;
    QStringList m_folders;
    Stamps m_stamps;
    quint64 m_generation = 0;
    bool m_checking = false;
    bool m_checkAgain = false;
};
