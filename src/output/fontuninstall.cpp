// Font uninstall window: the list of the user's font files and their removal.
#include "output/fontuninstall.h"

#include "components/errorreport.h"
#include "components/msgbox.h"
#include "output/userfonts.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum Column { FamilyColumn = 0, StyleColumn = 1, FileColumn = 2 };
constexpr int PathRole = Qt::UserRole;

} // namespace

FontUninstall::FontUninstall(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("FontUninstall"));
    setWindowTitle(QStringLiteral("Désinstallation de polices"));
    resize(620, 420);

    auto* layout = new QVBoxLayout(this);
    Label1 = new QLabel(QStringLiteral("Voici les polices que vous avez installées vous-même. Sélectionnez celles à "
                                       "désinstaller (Ctrl ou Maj pour en choisir plusieurs) : elles iront dans la "
                                       "corbeille. Les polices du système demandent les droits d'administrateur et "
                                       "ne sont pas proposées."),
                        this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    layout->addWidget(Label1);

    List1 = new QTreeWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setHeaderLabels({QStringLiteral("Police"), QStringLiteral("Style"), QStringLiteral("Fichier")});
    List1->setRootIsDecorated(false);
    List1->setUniformRowHeights(true);
    List1->setSelectionMode(QAbstractItemView::ExtendedSelection);
    List1->setAllColumnsShowFocus(true);
    List1->header()->setStretchLastSection(true);
    List1->header()->setSectionResizeMode(FamilyColumn, QHeaderView::ResizeToContents);
    List1->header()->setSectionResizeMode(StyleColumn, QHeaderView::ResizeToContents);
    layout->addWidget(List1, 1);

    Label2 = new QLabel(this);
    Label2->setObjectName(QStringLiteral("Label2"));
    layout->addWidget(Label2);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    Command1 = new QPushButton(QStringLiteral("&Désinstaller"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setAutoDefault(false);
    Command1->setEnabled(false);
    Command2 = new QPushButton(QStringLiteral("&Fermer"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setAutoDefault(false);
    buttons->addWidget(Command1);
    buttons->addWidget(Command2);
    layout->addLayout(buttons);

    ErrorReport::connect(List1, &QTreeWidget::itemSelectionChanged, this, &FontUninstall::List1_SelectionChanged);
    ErrorReport::connect(Command1, &QPushButton::clicked, this, &FontUninstall::Command1_Click);
    ErrorReport::connect(Command2, &QPushButton::clicked, this, &FontUninstall::Command2_Click);
}

void FontUninstall::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = true;
        ErrorReport::guard([this] { Form_Load(); });
    }
    QDialog::setVisible(visible);
}

void FontUninstall::Form_Load()
{
    Remplir();
}

void FontUninstall::Remplir()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const QList<UserFonts::FontFile> files = UserFonts::List();
    List1->clear();
    QList<QTreeWidgetItem*> items;
    for (const UserFonts::FontFile& file : files) {
        auto* item = new QTreeWidgetItem(QStringList{file.family, file.style, QFileInfo(file.path).fileName()});
        item->setData(FamilyColumn, PathRole, file.path);
        item->setToolTip(FileColumn, QDir::toNativeSeparators(file.path));
        items.append(item);
    }
    List1->addTopLevelItems(items);
    if (files.isEmpty())
        Label2->setText(QStringLiteral("Vous n'avez installé aucune police vous-même (répertoire %1).")
                            .arg(QDir::toNativeSeparators(UserFonts::Folder())));
    else
        Label2->setText(QStringLiteral("Nombre de fichiers de polices : %1").arg(files.size()));
    List1_SelectionChanged();
    // Rows that went away must not linger on screen.
    List1->viewport()->update();
    QApplication::restoreOverrideCursor();
}

void FontUninstall::List1_SelectionChanged()
{
    Command1->setEnabled(!List1->selectedItems().isEmpty());
}

void FontUninstall::Command1_Click()
{
    const QList<QTreeWidgetItem*> selected = List1->selectedItems();
    if (selected.isEmpty())
        return;
    if (!MsgBox::Ask(this, QStringLiteral("Êtes-vous certain(e) ?")))
        return;

    QStringList failed;
    for (const QTreeWidgetItem* item : selected) {
        const QString path = item->data(FamilyColumn, PathRole).toString();
        if (UserFonts::MoveToTrash(path))
            m_removed.append(path);
        else
            failed.append(QDir::toNativeSeparators(path));
    }
    UserFonts::Refresh();
    Remplir();
    if (!failed.isEmpty())
        MsgBox::Inform(this, QStringLiteral("Erreur, impossible de mettre ces fichiers à la corbeille :\n") + failed.join(QLatin1Char('\n')));
}

void FontUninstall::Command2_Click()
{
    close();
}
