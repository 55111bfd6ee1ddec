// Common dialogs through Qt's own (non-native) dialogs so they behave alike everywhere.
#include "components/cmdialog.h"

#include "components/frenchfiletypes.h"

#include <QColorDialog>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>
#include <QWidget>

namespace CMDIALOG {

QColor ForeColor(const QWidget* control)
{
    return control->palette().color(QPalette::Text);
}

void setForeColor(QWidget* control, const QColor& color)
{
    QPalette palette = control->palette();
    for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Text, color);
        palette.setColor(group, QPalette::WindowText, color);
    }
    control->setPalette(palette);
}

bool ShowColor(QWidget* owner, QWidget* control)
{
    QColorDialog dialog(Qt::black, owner);
    dialog.setObjectName(QStringLiteral("ColorDialog"));
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setCurrentColor(Qt::black);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    setForeColor(control, dialog.selectedColor());
    return true;
}

QString BuildFilter(const QStringList& pairs)
{
    return pairs.join(QChar(0));
}

QStringList NameFilters(const QString& filter)
{
    const QStringList parts = filter.split(QChar(0));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString pattern = parts[i + 1];
        pattern.replace(QLatin1Char(';'), QLatin1Char(' '));
        filters.append(parts[i] + QStringLiteral(" (") + pattern + QLatin1Char(')'));
    }
    return filters;
}

QString ShowFileDialog(QWidget* owner, int mode, const QString& title, const QString& initialName,
                       const QString& filter, const QString& initialDir, const QString& defaultExt)
{
    QFileDialog dialog(owner, title);
    dialog.setObjectName(QStringLiteral("FileDialog"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setIconProvider(FrenchFileTypes::instance());
    const QStringList filters = NameFilters(filter);
    if (!filters.isEmpty())
        dialog.setNameFilters(filters); // the first pair is selected
    if (mode != ModeOpen)
        dialog.setDirectory(SaveFolder(initialDir));
    else if (!initialDir.isEmpty())
        dialog.setDirectory(QDir(initialDir).absolutePath());
    dialog.setDefaultSuffix(defaultExt);
    if (mode == ModeOpen) {
        dialog.setAcceptMode(QFileDialog::AcceptOpen);
        dialog.setFileMode(QFileDialog::ExistingFile);
    } else {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
    }
    // A pattern such as "*.gif" is not a name to propose: the filter already says it.
    if (!initialName.isEmpty() && !initialName.contains(QLatin1Char('*')))
        dialog.selectFile(initialName);
    if (dialog.exec() != QDialog::Accepted)
        return QString();
    const QStringList files = dialog.selectedFiles();
    return files.isEmpty() ? QString() : QDir::toNativeSeparators(files.first());
}

QString SaveFolder(const QString& initialDir)
{
    const auto writableFolder = [](const QString& path) {
        const QFileInfo folder(path);
        return !path.isEmpty() && folder.isDir() && folder.isWritable();
    };
    const QString wanted = QDir(initialDir.isEmpty() ? QStringLiteral(".") : initialDir).absolutePath();
    if (writableFolder(wanted))
        return wanted;
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (writableFolder(documents))
        return documents;
    return QDir::homePath();
}

bool ShellOpen(const QString& target)
{
    if (target.trimmed().isEmpty())
        return false;
    QUrl url = QUrl::fromUserInput(target, QDir::currentPath(), QUrl::AssumeLocalFile);
    if (!url.isValid())
        return false;
    return QDesktopServices::openUrl(url);
}

QString ExtractPath(const QString& path)
{
    for (qsizetype i = path.size() - 1; i >= 0; --i)
        if (path[i] == QLatin1Char('\\') || path[i] == QLatin1Char('/'))
            return path.left(i + 1);
    return path;
}

} // namespace CMDIALOG
