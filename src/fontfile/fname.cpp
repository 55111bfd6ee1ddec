// FName: the lists follow the process's current folder; the lookup is given the bare
// file name, which works because choosing a folder made it the current one.
#include "fontfile/fname.h"

#include "components/errorreport.h"
#include "components/runtimeerror.h"
#include "fontfile/filelists.h"
#include "fontfile/fontregistration.h"
#include "fontfile/fonttypes.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

FName::FName(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("FName"));
    setWindowTitle(QStringLiteral("Obtenir le nom d'une police"));
    resize(560, 400);

    const FolderBrowser browser = createFolderBrowser(this);
    Drive1 = browser.drive;
    Dir1 = browser.folders;
    File1 = browser.files;
    Command2 = new QPushButton(QStringLiteral("Obtenir le nom"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setAutoDefault(false);
    Command1 = new QPushButton(QStringLiteral("&Fermer"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setAutoDefault(false);
    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setTextFormat(Qt::PlainText);
    Label1->setFrameShape(QFrame::Panel);
    Label1->setFrameShadow(QFrame::Sunken);
    Label1->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Label1->setMinimumHeight(Label1->fontMetrics().height() + 8);
    Label1->setWordWrap(true);
    cboType = createTypeCombo(this, File1);

    auto* grid = new QGridLayout(this);
    grid->addWidget(Drive1, 0, 0);
    grid->addWidget(Dir1, 1, 0);
    grid->addWidget(File1, 0, 1, 2, 1);
    grid->addWidget(cboType, 2, 1);
    grid->addWidget(Label1, 3, 0, 1, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(Command2);
    buttons->addWidget(Command1);
    grid->addLayout(buttons, 4, 0, 1, 2);
    grid->setRowStretch(1, 1);

    ErrorReport::connect(Drive1, &DriveListBox::Change, this, &FName::Drive1_Change);
    ErrorReport::connect(Dir1, &DirListBox::Change, this, &FName::Dir1_Change);
    ErrorReport::connect(File1, &FileListBox::DblClick, this, &FName::File1_DblClick);
    ErrorReport::connect(Command2, &QPushButton::clicked, this, &FName::Command2_Click);
    ErrorReport::connect(Command1, &QPushButton::clicked, this, &FName::Command1_Click);
    ErrorReport::connect(cboType, &QComboBox::currentIndexChanged, this, &FName::cboType_Click);
}

QString FName::SystemFontsFolder()
{
    return QStringLiteral("/usr/share/fonts");
}

void FName::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = true;
        ErrorReport::guard([this] { Form_Load(); });
    }
    QDialog::setVisible(visible);
}

void FName::Form_Load()
{
    try {
        Dir1->setPath(SystemFontsFolder());
    } catch (const RuntimeError&) {
        // A missing fonts folder: the lists stay where they are.
    }
}

void FName::Drive1_Change()
{
    DriveFolders::ChDrive(Drive1->Drive());
    Dir1->setPath(DriveFolders::currentFolderOf(Drive1->Drive()));
}

void FName::Dir1_Change()
{
    DriveFolders::ChDir(Dir1->Path());
    File1->setPath(Dir1->Path());
}

void FName::File1_DblClick()
{
    Command2_Click();
}

void FName::Command2_Click()
{
    if (File1->ListIndex() == -1) {
        Label1->clear();
        return;
    }
    // One line per face; a refused web font is said so instead.
    QString refusal;
    const QStringList names = FontRegistration::faceNamesOfFile(File1->FileName(), &refusal);
    Label1->setText(refusal.isEmpty() ? names.join(QLatin1Char('\n')) : refusal);
}

void FName::cboType_Click()
{
    File1->setPattern(FontTypes::pattern(cboType->currentIndex()));
}

void FName::Command1_Click()
{
    close();
}
