// FtstImg: loading, painting the tiles and the text, stamping, the angle and the menu.
#include "samples/ftstimg.h"

#include "app/debut.h"
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/cmdialog.h"
#include "components/conversions.h"
#include "components/errorreport.h"
#include "components/msgbox.h"
#include "samples/imagelayout.h"
#include "samples/picturefile.h"

#include <QComboBox>
#include <QFontMetricsF>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <cmath>

namespace {

const QString automaticCaption = QStringLiteral("Mode Automatique");
const QString manualCaption = QStringLiteral("Mode Manuel");

int buttonsOf(Qt::MouseButtons buttons)
{
    return (buttons & Qt::LeftButton ? 1 : 0) | (buttons & Qt::RightButton ? 2 : 0) | (buttons & Qt::MiddleButton ? 4 : 0);
}

int shiftOf(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0)
           | (modifiers & Qt::AltModifier ? 4 : 0);
}

QString sampleText()
{
    const tglyphora* main = tglyphora::instance();
    return main ? main->Text1->text() : QString();
}

} // namespace

FtstImg::FtstImg(QWidget* parent) : QWidget(parent)
{
    setWindowFlag(Qt::Window);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setObjectName(QStringLiteral("FtstImg"));
    setWindowTitle(ImageLayout::AutomaticTitle());
    setFocusPolicy(Qt::StrongFocus);
    resize(640, 480);

    Picture1 = new QLabel(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->hide();
    Picture1->resize(0, 0);

    buildMenu();
}

FtstImg::~FtstImg() = default;

void FtstImg::buildMenu()
{
    mcontextuel = new QMenu(QStringLiteral("&Options"), this);
    mcontextuel->setObjectName(QStringLiteral("mcontextuel"));
    auto add = [this](const char* name, const QString& caption, void (FtstImg::*slot)()) {
        QAction* action = mcontextuel->addAction(caption);
        action->setObjectName(QString::fromLatin1(name));
        ErrorReport::connect(action, &QAction::triggered, this, slot);
        return action;
    };
    auto separator = [this](const char* name) { mcontextuel->addSeparator()->setObjectName(QString::fromLatin1(name)); };

    mmeth1 = add("mmeth1", QStringLiteral("Mettre l'image sur toute la s&urface de la feuille"), &FtstImg::mmeth1_Click);
    mmeth2 = add("mmeth2", QStringLiteral("Mettre l'image sur la &gauche de la feuille"), &FtstImg::mmeth2_Click);
    separator("msep1");
    mchgpict = add("mchgpict", QStringLiteral("&Changer d'image"), &FtstImg::mchgpict_Click);
    separator("msep2");
    mmodeautoman = add("mmodeautoman", automaticCaption, &FtstImg::mmodeautoman_Click);
    mangle = add("mangle", QStringLiteral("Changer l'angle"), &FtstImg::mangle_Click);
    mangle->setEnabled(false);
    mrefresh = add("mrefresh", QStringLiteral("Rafraichir"), &FtstImg::mrefresh_Click);
    separator("msep3");
    mquit = add("mquit", QStringLiteral("&Fermer"), &FtstImg::mquit_Click);
}

QString FtstImg::ChoosePicture(QWidget* owner)
{
    const QString filter = CMDIALOG::BuildFilter({QStringLiteral("Gif"), QStringLiteral("*.gif"), QStringLiteral("jpg"),
                                                  QStringLiteral("*.jpg"), QStringLiteral("jpeg"), QStringLiteral("*.jpeg"),
                                                  QStringLiteral("bmp"), QStringLiteral("*.bmp"), QStringLiteral("ico"),
                                                  QStringLiteral("*.ico"), QStringLiteral("wmf"), QStringLiteral("*.wmf")});
    return CMDIALOG::ShowFileDialog(owner, CMDIALOG::ModeOpen, QStringLiteral("Ouvrir"), QStringLiteral("*.gif"), filter,
                                    debut::LastFolder, QStringLiteral("gif"));
}

QImage FtstImg::ReadPicture(QWidget* owner, const QString& path)
{
    QImage picture = PictureFile::Load(path);
    if (picture.isNull())
        MsgBox::Inform(owner, PictureFile::ErrorText(path));
    return picture;
}

void FtstImg::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = true;
        ErrorReport::guard([this] { Form_Load(); });
    }
    QWidget::setVisible(visible);
}

void FtstImg::Form_Load()
{
    m_placement = ImageLayout::PlacementWhole;
    setPicture(ReadPicture(this, debut::PicturePath));
    m_mode = 1;
    Form_Paint();
    // The rotated font keeps its own copy: later changes in the main window do not reach it.
    m_rotated.setLogFont(&m_font);
}

bool FtstImg::setPicture(const QImage& picture)
{
    if (picture.isNull())
        return false;
    Picture1->setPixmap(QPixmap::fromImage(picture));
    Picture1->resize(picture.size());
    return true;
}

void FtstImg::readMainWindowFont()
{
    const tglyphora* main = tglyphora::instance();
    if (!main)
        return;
    m_font.setName(debut::CurrentFaceName);
    m_font.setBold(main->ButtonValue(tglyphora::BoldButton) != 0);
    m_font.setItalic(main->ButtonValue(tglyphora::ItalicButton) != 0);
    const double size = Conversions::leadingNumber(main->Combo1->currentText());
    if (size > 0)
        m_font.setSize(size);
    m_font.setStrikethrough(main->ButtonValue(tglyphora::StrikeButton) != 0);
    m_font.setUnderline(main->ButtonValue(tglyphora::UnderlineButton) != 0);
    m_foreColor = main->Text1->ForeColor();
    m_backColor = main->Text1->BackColor();
}

void FtstImg::prepareCanvas()
{
    const qreal ratio = devicePixelRatioF();
    m_canvas = QImage(size() * ratio, QImage::Format_ARGB32_Premultiplied);
    m_canvas.setDevicePixelRatio(ratio);
    // Point sizes on the canvas mean what they mean on the screen.
    const int dotsPerMeter = static_cast<int>(std::lround(CLogFont::PixelsPerInch() / 0.0254));
    m_canvas.setDotsPerMeterX(dotsPerMeter);
    m_canvas.setDotsPerMeterY(dotsPerMeter);
    m_canvas.fill(m_backColor);
    // The drawing position is the window's own: a new canvas keeps it, so the text
    // printed next goes on the line below the last print or stamp.
}

void FtstImg::Form_Paint()
{
    readMainWindowFont();
    prepareCanvas();
    const QPixmap picture = Picture1->pixmap();
    if (!picture.isNull()) {
        QPainter painter(&m_canvas);
        const auto tiles = ImageLayout::TilePositions(m_placement, Picture1->width(), Picture1->height(), width(), height());
        for (const QPoint& tile : tiles)
            painter.drawPixmap(tile, picture);
    }
    if (m_mode == 1)
        printText(m_font.toQFont(), 0.0);
    update();
}

void FtstImg::printText(const QFont& font, double angle)
{
    static const QRegularExpression lineBreak(QStringLiteral("\r\n|\r|\n"));
    const QStringList lines = sampleText().split(lineBreak);
    QPainter painter(&m_canvas);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(font);
    painter.setPen(m_foreColor);
    const qreal lineHeight = QFontMetricsF(painter.font(), &m_canvas).lineSpacing();
    // The drawing position is the top-left corner of the first line; the lines turn
    // around it, counter-clockwise.
    painter.translate(m_position);
    painter.rotate(-angle);
    constexpr int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine | Qt::TextExpandTabs | Qt::TextDontClip;
    for (int i = 0; i < lines.size(); ++i)
        painter.drawText(QRectF(0, i * lineHeight, 0, lineHeight), flags, lines[i]);
    m_position = QPointF(0, m_position.y() + lines.size() * lineHeight);
}

void FtstImg::stamp(float x, float y)
{
    // Without a font object the window's own font is used, unrotated.
    const QFont* rotated = m_rotated.HandleFont();
    m_position = QPointF(x, y);
    printText(rotated ? *rotated : m_font.toQFont(), rotated ? m_rotated.HandleAngle() : 0.0);
    update();
}

void FtstImg::updateTitle()
{
    setWindowTitle(ImageLayout::ManualTitle(m_rotated.Rotation()));
}

void FtstImg::Form_KeyPress(int KeyAscii)
{
    if (m_mode != 2)
        return;
    std::optional<int> angle;
    if (KeyAscii == '+')
        angle = ImageLayout::RaisedAngle(m_rotated.Rotation());
    else if (KeyAscii == '-')
        angle = ImageLayout::LoweredAngle(m_rotated.Rotation());
    if (angle)
        m_rotated.setRotation(static_cast<float>(*angle));
    updateTitle();
}

void FtstImg::Form_MouseMove(int Button, int, float X, float Y)
{
    if (m_mode == 2 && Button == 1)
        stamp(X, Y);
}

void FtstImg::Form_MouseUp(int Button, int, float X, float Y)
{
    if (Button == 2) {
        mcontextuel->popup(mapToGlobal(QPoint(static_cast<int>(X), static_cast<int>(Y))));
        return;
    }
    if (m_mode == 2 && Button == 1)
        stamp(X, Y);
}

void FtstImg::Form_Resize()
{
    // The resize that comes with showing the window finds the canvas its load painted.
    const bool sameSize = !m_canvas.isNull() && m_canvas.size() == size() * devicePixelRatioF();
    // A maximised or minimised window has no place of its own to move to.
    if (!(windowState() & (Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen))) {
        if (const QScreen* display = screen()) {
            const QRect area = display->geometry();
            const QRect frame = frameGeometry();
            move(area.x() + (area.width() - frame.width()) / 2, area.y() + (area.height() - frame.height()) / 2);
        }
    }
    if (!sameSize)
        Form_Paint();
}

void FtstImg::mmeth1_Click()
{
    m_placement = ImageLayout::PlacementWhole;
    Form_Paint();
}

void FtstImg::mmeth2_Click()
{
    m_placement = ImageLayout::PlacementLeft;
    Form_Paint();
}

void FtstImg::mchgpict_Click()
{
    const QString path = ChoosePicture(this);
    if (path.trimmed().isEmpty())
        return;
    if (!setPicture(ReadPicture(this, path)))
        return;
    debut::PicturePath = path;
    debut::LastFolder = CMDIALOG::ExtractPath(path);
    Form_Paint();
}

void FtstImg::mmodeautoman_Click()
{
    if (mmodeautoman->text() == automaticCaption) {
        m_mode = 2;
        mmodeautoman->setText(manualCaption);
        mangle->setEnabled(true);
        updateTitle();
        MsgBox::Inform(this, QStringLiteral("C'est à vous de cliquer sur la fenêtre pour afficher le texte. Vous pouvez changer "
                                     "l'angle en appuyant sur les touches + et - ou aller dans le menu \"Changer l'angle\""));
    } else {
        m_mode = 1;
        mmodeautoman->setText(automaticCaption);
        setWindowTitle(ImageLayout::AutomaticTitle());
        mangle->setEnabled(false);
    }
    mrefresh_Click();
}

void FtstImg::mangle_Click()
{
    QInputDialog box(this);
    box.setObjectName(QStringLiteral("InputBox"));
    box.setWindowTitle(QStringLiteral("Changer d'angle"));
    box.setLabelText(QStringLiteral("Entrez l'angle (entre -360 et +360 degrés)"));
    box.setInputMode(QInputDialog::TextInput);
    box.setTextValue(ImageLayout::AngleText(m_rotated.Rotation()));
    const QString answer = box.exec() == QDialog::Accepted ? box.textValue() : QString();

    // A cancelled, empty or non-numeric answer reads as 0 and sets the angle to 0.
    const double angle = Conversions::leadingNumber(answer);
    if (!ImageLayout::AcceptsAngle(angle)) {
        MsgBox::Inform(this, QStringLiteral("Erreur, l'angle donné n'est pas correct"));
        return;
    }
    m_rotated.setRotation(static_cast<float>(angle));
    updateTitle();
}

void FtstImg::mrefresh_Click()
{
    Form_Paint();
}

void FtstImg::mquit_Click()
{
    close();
}

void FtstImg::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (m_canvas.isNull())
        painter.fillRect(rect(), m_backColor);
    else
        painter.drawImage(0, 0, m_canvas);
}

void FtstImg::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    ErrorReport::guard([this] { Form_Resize(); });
}

void FtstImg::keyPressEvent(QKeyEvent* event)
{
    const QString text = event->text();
    if (text.isEmpty()) {
        QWidget::keyPressEvent(event);
        return;
    }
    ErrorReport::guard([&] { Form_KeyPress(text[0].unicode()); });
}

void FtstImg::mouseMoveEvent(QMouseEvent* event)
{
    ErrorReport::guard([&] {
        Form_MouseMove(buttonsOf(event->buttons()), shiftOf(event->modifiers()),
                       static_cast<float>(event->position().x()), static_cast<float>(event->position().y()));
    });
}

void FtstImg::mouseReleaseEvent(QMouseEvent* event)
{
    ErrorReport::guard([&] {
        Form_MouseUp(buttonsOf(event->button()), shiftOf(event->modifiers()), static_cast<float>(event->position().x()),
                     static_cast<float>(event->position().y()));
    });
}
