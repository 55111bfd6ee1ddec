// Installing fonts from the main window or the preview window.
#include "output/fontinstallcommand.h"

#include "app/tglyphora.h"
#include "components/frenchfiletypes.h"
#include "components/msgbox.h"
#include "fontfile/fonttypes.h"
#include "output/fontinstall.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>
#include <QTreeWidget>

namespace FontInstallCommand {

QStringList askFiles(QWidget* owner)
{
    QFileDialog dialog(owner, QStringLiteral("Installer des polices"));
    dialog.setObjectName(QStringLiteral("FileDialog"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setIconProvider(FrenchFileTypes::instance());
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    QStringList filters = FontTypes::captions();
    filters.move(FontTypes::AllFonts, 0); // every font first
    dialog.setNameFilters(filters);
    const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    dialog.setDirectory(QDir(downloads).exists() ? downloads : QDir::homePath());
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles();
}

QStringList run(QWidget* owner, const QStringList& files)
{
    const auto replace = [owner](const QString& name) {
        return MsgBox::Ask(owner, QStringLiteral("Remplacer « %1 » ?").arg(name));
    };
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const QList<FontInstall::Result> results = FontInstall::install(files, [&](const QString& name) {
        QApplication::restoreOverrideCursor(); // the question is answered with the normal pointer
        const bool yes = replace(name);
        QApplication::setOverrideCursor(Qt::WaitCursor);
        return yes;
    });
    QStringList written, problems;
    for (const FontInstall::Result& result : results) {
        if (FontInstall::changedFolder(result))
            written.append(result.target);
        if (!result.message.isEmpty())
            problems.append(result.message);
    }
    if (!written.isEmpty()) {
        FontInstall::publish(written.first());
        if (tglyphora* window = tglyphora::instance())
            reloadFontList(window);
    }
    QApplication::restoreOverrideCursor();
    if (!problems.isEmpty())
        MsgBox::Inform(owner, problems.join(QLatin1Char('\n')));
    return written;
}

void reloadFontList(tglyphora* window)
{
    const QTreeWidgetItem* current = window->List1->currentItem();
    const QString selected = current ? current->text(0) : QString();
    window->charge();
    const QList<QTreeWidgetItem*> found = window->List1->findItems(selected, Qt::MatchExactly);
    if (selected.isEmpty() || found.isEmpty())
        return;
    window->List1->setCurrentItem(found.first());
    window->List1->scrollToItem(found.first());
    window->List1_Click();
}

} // namespace FontInstallCommand

void tglyphora::minstaller_Click()
{
    const QStringList files = FontInstallCommand::askFiles(this);
    if (!files.isEmpty())
        FontInstallCommand::run(this, files);
}
