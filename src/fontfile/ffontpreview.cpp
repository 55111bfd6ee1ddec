// FFontPreview: folder browsing, drawing a file at the series of sizes, the delayed
// redraw after a resize, and the copy of the description to the clipboard.
#include "fontfile/ffontpreview.h"

#include "components/boundedfile.h"
#include "components/errorreport.h"
#include "components/msgbox.h"
#include "components/runtimeerror.h"
#include "components/stdfont.h"
#include "fontfile/cfontpreview.h"
#include "fontfile/filelists.h"
#include "fontfile/fontregistration.h"
#include "fontfile/fonttypes.h"
#include "fontfile/picturebox.h"
#include "output/fontinstallcommand.h"

#include <QClipboard>
#include <QComboBox>
#include <QFileInfo>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QTimer>
#include <functional>
#include <memory>
#include <utility>

namespace {

constexpr int margin = 6;
constexpr int listWidth = 220;
constexpr int redrawDelayMs = 300;

// A name the object cannot give (no name table read yet) is shown empty.
QString nameOrEmpty(const std::function<QString()>& read)
{
    try {
        return read();
    } catch (const RuntimeError&) {
        return QString();
    }
}

} // namespace

FFontPreview::FFontPreview(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("FFontPreview"));
    setWindowTitle(QCoreApplication::applicationName());
    resize(900, 640);

    const FolderBrowser browser = createFolderBrowser(this);
    Drive1 = browser.drive;
    Dir1 = browser.folders;
    File1 = browser.files;
    Picture1 = new PictureBox(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(redrawDelayMs);
    cboType = createTypeCombo(this, File1);
    cmdInstaller = new QPushButton(QStringLiteral("Installer"), this);
    cmdInstaller->setObjectName(QStringLiteral("cmdInstaller"));
    cmdInstaller->setAutoDefault(false);
    cmdInstaller->setEnabled(false);
    VScroll1 = new QScrollBar(Qt::Vertical, this);
    VScroll1->setObjectName(QStringLiteral("VScroll1"));
    VScroll1->setRange(0, 0);

    ErrorReport::connect(Drive1, &DriveListBox::Change, this, &FFontPreview::Drive1_Change);
    ErrorReport::connect(Dir1, &DirListBox::Change, this, &FFontPreview::Dir1_Change);
    ErrorReport::connect(File1, &FileListBox::Click, this, &FFontPreview::File1_Click);
    ErrorReport::connect(Timer1, &QTimer::timeout, this, &FFontPreview::Timer1_Timer);
    ErrorReport::connect(cboType, &QComboBox::currentIndexChanged, this, &FFontPreview::cboType_Click);
    ErrorReport::connect(cmdInstaller, &QPushButton::clicked, this, &FFontPreview::cmdInstaller_Click);
    connect(Picture1, &PictureBox::ContentHeightChanged, this, [this] { updateScrollRange(); });
    connect(Picture1, &PictureBox::ScrollYChanged, this, [this](int y) {
        const QSignalBlocker quiet(VScroll1);
        VScroll1->setValue(y);
    });
    connect(VScroll1, &QScrollBar::valueChanged, Picture1, &PictureBox::setScrollY);
    for (QWidget* control : {static_cast<QWidget*>(Drive1), static_cast<QWidget*>(Dir1), static_cast<QWidget*>(File1),
                             static_cast<QWidget*>(Picture1), static_cast<QWidget*>(cboType),
                             static_cast<QWidget*>(cmdInstaller)})
        control->installEventFilter(this); // the window sees its controls' keys first
}

FFontPreview::~FFontPreview() = default;

void FFontPreview::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = true;
        ErrorReport::guard([this] { Form_Load(); });
    }
    QDialog::setVisible(visible);
}

void FFontPreview::Form_Load()
{
    // Errors from the lists are not reported; the first one is remembered as pending.
    auto quietly = [this](const std::function<void()>& statement) {
        try {
            statement();
        } catch (const RuntimeError&) {
            m_errorPending = true;
        }
    };
    const QString start = !m_errorPending ? QDir::currentPath() : QCoreApplication::applicationDirPath();
    quietly([&] { Drive1->setDrive(start); });
    quietly([&] { Dir1->setPath(start); });
    quietly([&] { File1->setPattern(QStringLiteral("*.ttf")); });
    const bool commandLine = QCoreApplication::arguments().size() > 1;
    m_copyToClipboard = commandLine || m_errorPending;
    applyFiles();
}

void FFontPreview::ShowFiles(const QStringList& files)
{
    m_files = files;
    if (m_loaded)
        applyFiles();
}

void FFontPreview::applyFiles()
{
    if (m_files.isEmpty())
        return;
    const QFileInfo first(m_files.first());
    Drive1->setDrive(first.absolutePath());
    Dir1->setPath(first.absolutePath());
    cboType->setCurrentIndex(FontTypes::AllFonts);
    // A font is known by its first bytes, not its name: given files are listed whatever
    // they end with.
    QStringList pattern{File1->Pattern()};
    for (const QString& file : std::as_const(m_files)) {
        const QFileInfo info(file);
        if (info.absolutePath() == first.absolutePath() && !FontTypes::matches(FontTypes::AllFonts, info.fileName()))
            pattern.append(info.fileName());
    }
    File1->setPattern(pattern.join(QLatin1Char(';')));
    for (int i = 0; i < File1->ListCount(); ++i)
        if (File1->List(i) == first.fileName())
            File1->setListIndex(i); // drawn through the list's click
    m_files.clear();
}

void FFontPreview::Drive1_Change()
{
    Dir1->setPath(DriveFolders::currentFolderOf(Drive1->Drive()));
}

void FFontPreview::Dir1_Change()
{
    File1->setPath(Dir1->Path());
    cmdInstaller->setEnabled(false);
}

void FFontPreview::cboType_Click()
{
    File1->setPattern(FontTypes::pattern(cboType->currentIndex()));
    cmdInstaller->setEnabled(false);
}

void FFontPreview::cmdInstaller_Click()
{
    if (File1->ListIndex() == -1)
        return;
    const QString path = QDir(File1->Path()).filePath(File1->FileName());
    if (!FontInstallCommand::run(this, {path}).isEmpty())
        DrawSelectedFile(); // now described as installed
}

void FFontPreview::File1_Click()
{
    DrawSelectedFile();
}

void FFontPreview::Form_Resize()
{
    const int inner = std::max(0, height() - 2 * margin);
    Drive1->setGeometry(margin, margin, listWidth, Drive1->sizeHint().height());
    const int listsTop = Drive1->geometry().bottom() + 1 + margin;
    // The type box and the install button sit under the file list.
    const int typeHeight = cboType->sizeHint().height();
    const int buttonHeight = cmdInstaller->sizeHint().height();
    const int below = typeHeight + buttonHeight + 2 * margin;
    const int listsHeight = std::max(0, height() - listsTop - 2 * margin - below);
    Dir1->setGeometry(margin, listsTop, listWidth, listsHeight / 2);
    File1->setGeometry(margin, listsTop + listsHeight / 2 + margin, listWidth, listsHeight - listsHeight / 2);
    cboType->setGeometry(margin, File1->geometry().bottom() + 1 + margin, listWidth, typeHeight);
    cmdInstaller->setGeometry(margin, cboType->geometry().bottom() + 1 + margin, listWidth, buttonHeight);
    const int left = Drive1->geometry().right() + 1 + margin;
    const int scrollWidth = VScroll1->sizeHint().width();
    Picture1->setGeometry(left, margin, std::max(0, width() - left - margin - scrollWidth), inner);
    VScroll1->setGeometry(Picture1->geometry().right() + 1, margin, scrollWidth, inner);
    updateScrollRange();
    Timer1->start();
}

void FFontPreview::updateScrollRange()
{
    const QSignalBlocker quiet(VScroll1);
    VScroll1->setRange(0, std::max(0, Picture1->ContentHeight() - Picture1->height()));
    VScroll1->setPageStep(std::max(1, Picture1->height()));
    VScroll1->setSingleStep(std::max(1, Picture1->TextHeight()));
    VScroll1->setValue(Picture1->ScrollY());
}

void FFontPreview::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    Form_Resize();
}

bool FFontPreview::leftButtonDown()
{
    return QGuiApplication::mouseButtons() & Qt::LeftButton;
}

void FFontPreview::Timer1_Timer()
{
    // While the border is still being dragged, wait for the button to come up.
    if (leftButtonDown())
        return;
    Timer1->stop();
    DrawSelectedFile();
}

void FFontPreview::DrawSelectedFile()
{
    Picture1->Cls();
    auto preview = std::make_unique<CFontPreview>();
    QString refusal;
    if (File1->ListIndex() != -1) {
        const QString path = QDir(File1->Path()).filePath(File1->FileName());
        refusal = PreviewText::refusalText(path, BoundedFile::check(path, BoundedFile::FontLimit));
        preview->setFontFile(path);
    }
    cmdInstaller->setEnabled(File1->ListIndex() != -1);
    Picture1->setCurrentX(0);
    Picture1->setCurrentY(0);
    if (!preview->FaceName().isEmpty())
        setWindowTitle(QCoreApplication::applicationName() + QStringLiteral(": ") + preview->FaceName());
    else
        setWindowTitle(QCoreApplication::applicationName());
    m_information.clear();
    m_message = preview->ReadError();
    if (!m_message.isEmpty()) {
        Picture1->setFont(font());
        Picture1->Print(m_message + QStringLiteral("\r\n"));
    }
    drawFace(*preview);
    // The other faces of a collection, one after the other, as long as there is room.
    const int faces = std::min(preview->FaceCount(), FontRegistration::maxFaces);
    for (int face = 1; face < faces && Picture1->CurrentY() < PictureBox::maxHeight; ++face) {
        preview->setFaceIndex(face);
        drawFace(*preview);
    }
    preview.reset(); // lets a temporarily registered file go
    if (m_copyToClipboard) {
        QClipboard* clipboard = QGuiApplication::clipboard();
        clipboard->clear();
        clipboard->setText(m_information);
    }
    // A file that is no regular file, or too large, is described as empty and said so.
    if (!refusal.isEmpty())
        MsgBox::Inform(this, refusal);
}

void FFontPreview::drawFace(const CFontPreview& preview)
{
    if (!preview.FaceName().isEmpty())
        drawSamples(preview);
    Picture1->setFont(font());
    const QString information = PreviewText::informationText(describe(preview));
    Picture1->Print(information);
    m_information += information;
}

void FFontPreview::drawSamples(const CFontPreview& preview)
{
    StdFont face;
    face.setName(preview.FaceName());
    face.setBold(preview.Bold());
    face.setItalic(preview.Italic());
    for (int size : PreviewText::sizes()) {
        face.setSize(size);
        Picture1->setFont(face.toQFont());
        Picture1->Print(PreviewText::sampleSentence());
    }
    face.setSize(PreviewText::characterLineSize);
    Picture1->setFont(face.toQFont());
    Picture1->Print(PreviewText::characterLine());
}

PreviewText::FileDescription FFontPreview::describe(const CFontPreview& preview)
{
    PreviewText::FileDescription file;
    file.faceName = preview.FaceName();
    file.familyName = nameOrEmpty([&] { return preview.FamilyName(); });
    file.subFamilyName = nameOrEmpty([&] { return preview.SubFamilyName(); });
    file.fullName = nameOrEmpty([&] { return preview.FullName(); });
    file.uniqueIdentifier = nameOrEmpty([&] { return preview.UniqueIdentifier(); });
    file.postscriptName = nameOrEmpty([&] { return preview.PostscriptName(); });
    file.copyright = nameOrEmpty([&] { return preview.Copyright(); });
    file.trademark = nameOrEmpty([&] { return preview.Trademark(); });
    file.versionString = nameOrEmpty([&] { return preview.VersionString(); });
    file.installed = preview.Installed();
    return file;
}

void FFontPreview::Form_KeyUp(int KeyCode, int Shift)
{
    Q_UNUSED(Shift);
    if (KeyCode == 27)
        close();
}

void FFontPreview::keyPressEvent(QKeyEvent* event)
{
    // Esc closes the window when it is released, not when it is pressed.
    if (event->key() == Qt::Key_Escape) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

void FFontPreview::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !event->isAutoRepeat()) {
        Form_KeyUp(27, 0);
        return;
    }
    QDialog::keyReleaseEvent(event);
}

bool FFontPreview::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyRelease) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Escape && !key->isAutoRepeat()) {
            Form_KeyUp(27, 0);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}
