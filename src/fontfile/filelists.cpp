// Drive, folder and file lists over QDir and QStorageInfo.
#include "fontfile/filelists.h"

#include "components/errorreport.h"
#include "components/runtimeerror.h"
#include "fontfile/fonttypes.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStorageInfo>
#include <QStyle>
#include <algorithm>

namespace DriveFolders {

namespace {

struct State {
    QStringList roots;
    bool read = false;
    QHash<QString, QString> lastFolder; // volume root -> folder last made current there
};

State& state()
{
    static State s;
    return s;
}

bool contains(const QString& root, const QString& path)
{
    if (root == QLatin1String("/"))
        return path.startsWith(QLatin1Char('/'));
    return path == root || path.startsWith(root + QLatin1Char('/'));
}

} // namespace

QStringList volumes()
{
    if (!state().read)
        refreshVolumes();
    return state().roots;
}

void refreshVolumes()
{
    QStringList roots;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
        if (volume.isValid() && volume.isReady())
            roots.append(QDir::cleanPath(volume.rootPath()));
    roots.sort();
    roots.removeDuplicates();
    setVolumes(roots);
}

void setVolumes(const QStringList& roots)
{
    state().roots.clear();
    for (const QString& root : roots)
        state().roots.append(QDir::cleanPath(QDir(root).absolutePath()));
    state().read = true;
}

QString volumeOf(const QString& path)
{
    const QString absolute = QDir::cleanPath(QDir(path).absolutePath());
    QString best;
    for (const QString& root : volumes())
        if (contains(root, absolute) && root.size() > best.size())
            best = root;
    return best;
}

QString currentFolderOf(const QString& volumeRoot)
{
    const QString root = QDir::cleanPath(volumeRoot);
    const QString current = QDir::currentPath();
    if (volumeOf(current) == root)
        return current;
    const QString last = state().lastFolder.value(root);
    return !last.isEmpty() && QFileInfo(last).isDir() ? last : root;
}

void ChDir(const QString& path)
{
    const QString absolute = QDir::cleanPath(QDir(path).absolutePath());
    if (!QFileInfo(absolute).isDir() || !QDir::setCurrent(absolute))
        throw RuntimeError::fileError(RuntimeError::PathNotFound, path);
    state().lastFolder.insert(volumeOf(absolute), absolute);
}

void ChDrive(const QString& volumeRoot)
{
    ChDir(currentFolderOf(volumeRoot));
}

} // namespace DriveFolders

namespace {

QString absoluteFolder(const QString& path)
{
    const QString absolute = QDir::cleanPath(QDir(path).absolutePath());
    if (path.isEmpty() || !QFileInfo(absolute).isDir())
        throw RuntimeError::fileError(RuntimeError::PathNotFound, path);
    return absolute;
}

} // namespace

DriveListBox::DriveListBox(QWidget* parent) : QComboBox(parent)
{
    Refresh();
    setDrive(QDir::currentPath());
    connect(this, &QComboBox::currentIndexChanged, this, [this] { Q_EMIT Change(); });
}

QString DriveListBox::Drive() const
{
    return currentData().toString();
}

void DriveListBox::setDrive(const QString& path)
{
    const QString root = DriveFolders::volumeOf(path);
    const int index = root.isEmpty() ? -1 : findData(root);
    if (index < 0)
        throw RuntimeError(68, QStringLiteral("Glyphora"), QStringLiteral("Périphérique non disponible"));
    setCurrentIndex(index); // Change follows when the choice changes
}

void DriveListBox::Refresh()
{
    const QString chosen = Drive();
    const QSignalBlocker quiet(this);
    clear();
    const QIcon icon = style()->standardIcon(QStyle::SP_DriveHDIcon);
    for (const QString& root : DriveFolders::volumes()) {
        const QString label = QStorageInfo(root).name();
        addItem(icon, label.isEmpty() ? root : root + QStringLiteral(" [") + label + QLatin1Char(']'), root);
    }
    setCurrentIndex(std::max(0, findData(chosen)));
}

DirListBox::DirListBox(QWidget* parent) : QListWidget(parent)
{
    setUniformItemSizes(true);
    m_path = QDir::currentPath();
    Refresh();
    ErrorReport::connect(this, &QListWidget::itemDoubleClicked, this, &DirListBox::openItem);
}

void DirListBox::setPath(const QString& path)
{
    const QString folder = absoluteFolder(path);
    const bool changed = folder != m_path;
    m_path = folder;
    Refresh();
    if (changed)
        Q_EMIT Change();
}

void DirListBox::Refresh()
{
    const QSignalBlocker quiet(this);
    clear();
    QStringList chain; // the root first, the current folder last
    for (QDir dir(m_path);; ) {
        chain.prepend(dir.absolutePath());
        if (!dir.cdUp())
            break;
    }
    const QIcon open = style()->standardIcon(QStyle::SP_DirOpenIcon);
    const QIcon closed = style()->standardIcon(QStyle::SP_DirClosedIcon);
    for (int level = 0; level < chain.size(); ++level) {
        const QString name = level == 0 ? chain[0] : QFileInfo(chain[level]).fileName();
        auto* item = new QListWidgetItem(open, QString(2 * level, QLatin1Char(' ')) + name, this);
        item->setData(Qt::UserRole, chain[level]);
    }
    m_ancestors = int(chain.size()) - 1;
    QDir current(m_path);
    // Qt lists a link to a device among the folders: only what really leads to a folder
    // is offered, so that choosing an entry can never fail.
    QStringList subfolders = current.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    subfolders.removeIf([&current](const QString& name) { return !QFileInfo(current.filePath(name)).isDir(); });
    for (const QString& name : subfolders) {
        auto* item = new QListWidgetItem(closed, QString(2 * int(chain.size()), QLatin1Char(' ')) + name, this);
        item->setData(Qt::UserRole, current.filePath(name));
    }
    m_subfolders = int(subfolders.size());
    setCurrentRow(m_ancestors);
}

int DirListBox::rowOf(int index) const
{
    return m_ancestors + 1 + index;
}

QString DirListBox::List(int index) const
{
    const QListWidgetItem* entry = item(rowOf(index));
    return entry ? entry->data(Qt::UserRole).toString() : QString();
}

int DirListBox::ListIndex() const
{
    return currentRow() < 0 ? -1 : currentRow() - m_ancestors - 1;
}

void DirListBox::openItem(QListWidgetItem* item)
{
    if (item)
        setPath(item->data(Qt::UserRole).toString());
}

void DirListBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        ErrorReport::guard([this] { openItem(currentItem()); });
        return;
    }
    QListWidget::keyPressEvent(event);
}

FileListBox::FileListBox(QWidget* parent) : QListWidget(parent)
{
    setUniformItemSizes(true);
    m_path = QDir::currentPath();
    Refresh();
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0)
            Q_EMIT Click();
    });
    connect(this, &QListWidget::itemDoubleClicked, this, [this] { Q_EMIT DblClick(); });
}

void FileListBox::setPath(const QString& path)
{
    m_path = absoluteFolder(path);
    Refresh();
}

void FileListBox::setPattern(const QString& pattern)
{
    m_pattern = pattern;
    Refresh();
}

void FileListBox::Refresh()
{
    const QSignalBlocker quiet(this);
    clear();
    QStringList filters;
    for (const QString& part : m_pattern.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        filters.append(part.trimmed() == QLatin1String("*.*") ? QStringLiteral("*") : part.trimmed());
    // Plain files only: no folders, no pipes or devices, no hidden files.
    QDir folder(m_path);
    addItems(folder.entryList(filters, QDir::Files, QDir::Name | QDir::IgnoreCase));
    setCurrentRow(-1);
}

QString FileListBox::List(int index) const
{
    const QListWidgetItem* entry = item(index);
    return entry ? entry->text() : QString();
}

void FileListBox::setListIndex(int index)
{
    if (index < -1 || index >= count())
        throw RuntimeError(380, QStringLiteral("Glyphora"), QStringLiteral("Valeur de propriété non valide"));
    setCurrentRow(index);
}

QString FileListBox::FileName() const
{
    const QListWidgetItem* entry = currentItem();
    return entry && currentRow() >= 0 ? entry->text() : QString();
}

FolderBrowser createFolderBrowser(QWidget* parent)
{
    FolderBrowser browser;
    browser.drive = new DriveListBox(parent);
    browser.drive->setObjectName(QStringLiteral("Drive1"));
    browser.folders = new DirListBox(parent);
    browser.folders->setObjectName(QStringLiteral("Dir1"));
    browser.files = new FileListBox(parent);
    browser.files->setObjectName(QStringLiteral("File1"));
    browser.files->setPattern(QStringLiteral("*.ttf"));
    return browser;
}

QComboBox* createTypeCombo(QWidget* parent, FileListBox* files)
{
    auto* types = new QComboBox(parent);
    types->setObjectName(QStringLiteral("cboType"));
    types->addItems(FontTypes::captions());
    types->setCurrentIndex(FontTypes::TrueTypeOnly);
    // The list of the opened box is as wide as the longest caption.
    types->view()->setMinimumWidth(types->view()->sizeHintForColumn(0) + 2 * types->view()->frameWidth());
    files->setPattern(FontTypes::pattern(FontTypes::TrueTypeOnly));
    return types;
}
