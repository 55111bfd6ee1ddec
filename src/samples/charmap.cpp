// The character table window: building the cells, loading the font, the codes of the
// character under the mouse, copying.
#include "samples/charmap.h"

#include "app/debut.h"
#include "components/ansi.h"
#include "components/errorreport.h"
#include "components/runtimeerror.h"
#include "samples/charcodes.h"

#include <QClipboard>
#include <QEvent>
#include <QFontMetrics>
#include <QFormLayout>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int CellSide = 28;
constexpr double CellPoints = 12;
constexpr double LargePoints = 36;
constexpr double ListPoints = 11;

// The face's own glyphs only: a character it lacks is drawn as the face draws a
// missing glyph, never borrowed from another font.
QFont faceAt(const QString& face, double points)
{
    QFont font;
    font.setFamilies({face});
    font.setPointSizeF(points);
    font.setStyleStrategy(QFont::NoFontMerging);
    return font;
}

} // namespace

charmap::charmap(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("charmap"));
    setWindowTitle(QStringLiteral("Une autre table de caractères"));

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(buildGrid());
    layout->addWidget(buildDetails(), 1);

    connect(List1, &QListWidget::itemClicked, this, ErrorReport::guarded([this] { List1_Click(); }));
    connect(List1, &QListWidget::itemDoubleClicked, this, ErrorReport::guarded([this] { List1_DblClick(); }));
    ErrorReport::connect(Command1, &QPushButton::clicked, this, &charmap::Command1_Click);
    ErrorReport::connect(Command2, &QPushButton::clicked, this, &charmap::Command2_Click);
}

QWidget* charmap::buildGrid()
{
    auto* grid = new QWidget(this);
    grid->setObjectName(QStringLiteral("grid"));
    auto* cells = new QGridLayout(grid);
    cells->setSpacing(0);
    cells->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < CharCodes::CellCount; ++i) {
        auto* cell = new QLabel(grid);
        cell->setObjectName(QStringLiteral("Label1_%1").arg(i));
        cell->setToolTip(QStringLiteral("Faites un double clic pour copier le caractère dans le presse papiers"));
        cell->setAlignment(Qt::AlignCenter);
        cell->setFixedSize(CellSide, CellSide);
        cell->setMouseTracking(true);
        cell->setLineWidth(1);
        cell->installEventFilter(this);
        cell->hide(); // shown by the load, once it carries its character
        const CharCodes::GridPlace place = CharCodes::CellPlace(i);
        cells->addWidget(cell, place.row, place.column);
        m_cells.append(cell);
    }
    return grid;
}

QWidget* charmap::buildDetails()
{
    auto* details = new QWidget(this);
    auto* column = new QVBoxLayout(details);
    column->setContentsMargins(0, 0, 0, 0);
    auto* form = new QFormLayout;
    auto label = [details](const char* name, const QString& text) {
        auto* widget = new QLabel(text, details);
        widget->setObjectName(QString::fromLatin1(name));
        return widget;
    };
    Label2 = label("Label2", QStringLiteral("Caractère :"));
    Label3 = label("Label3", QString());
    Label3->setMinimumSize(72, 72);
    Label3->setAlignment(Qt::AlignCenter);
    Label3->setFrameStyle(QFrame::Box | QFrame::Plain);
    Label4 = label("Label4", QStringLiteral("Code Ascii :"));
    Label5 = label("Label5", QString());
    Label7 = label("Label7", QStringLiteral("Valeur Hexa :"));
    Label6 = label("Label6", QString());
    Label9 = label("Label9", QStringLiteral("Valeur Octal :"));
    Label8 = label("Label8", QString());
    Label10 = label("Label10", QStringLiteral("Valeur Binaire :"));
    Label11 = label("Label11", QString());
    Label12 = label("Label12", QStringLiteral("Police :"));
    Label13 = label("Label13", QStringLiteral("Arial"));
    Label13->setWordWrap(true);
    Label14 = label("Label14", QString());
    form->addRow(Label2, Label3);
    form->addRow(QString(), Label14);
    form->addRow(Label4, Label5);
    form->addRow(Label7, Label6);
    form->addRow(Label9, Label8);
    form->addRow(Label10, Label11);
    form->addRow(Label12, Label13);
    column->addLayout(form);

    List1 = new QListWidget(details);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setUniformItemSizes(true);
    column->addWidget(List1, 1);

    Command2 = new QPushButton(QStringLiteral("&Copier le caractère"), details);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setToolTip(QStringLiteral("Dans le presse papiers"));
    Command2->setAutoDefault(false);
    Command1 = new QPushButton(QStringLiteral("&Quitter"), details);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Command2);
    buttons->addWidget(Command1);
    column->addLayout(buttons);
    return details;
}

QLabel* charmap::Label1(int Index) const
{
    if (Index < 0 || Index >= m_cells.size())
        throw RuntimeError::subscriptOutOfRange(QStringLiteral("Label1"));
    return m_cells[Index];
}

void charmap::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = true;
        ErrorReport::guard([this] { Form_Load(); });
    }
    QDialog::setVisible(visible);
}

void charmap::Form_Load()
{
    const QString face = debut::CurrentFaceName;
    List1->hide();
    List1->setFont(faceAt(face, ListPoints));
    Label13->setText(face);
    QStringList entries;
    for (int code = CharCodes::FirstListCode; code <= CharCodes::LastListCode; ++code)
        entries.append(CharCodes::ListEntry(code));
    List1->addItems(entries);
    List1->show();

    const QFont cellFont = faceAt(face, CellPoints);
    for (int i = 0; i < CharCodes::CellCount; ++i) {
        QLabel* cell = m_cells[i];
        cell->setFont(cellFont);
        cell->setText(Ansi::charOf(static_cast<unsigned char>(i + CharCodes::FirstCellCode)));
        cell->setVisible(true);
    }
    Label3->setFont(faceAt(face, LargePoints));
}

void charmap::showCodes(int code)
{
    Label5->setText(CharCodes::DecimalText(code));
    Label6->setText(CharCodes::HexText(code));
    Label8->setText(CharCodes::OctalText(code));
    Label11->setText(CharCodes::BinaryText(code));
}

void charmap::showPresence(const QString& character)
{
    const QList<uint> codes = character.toUcs4();
    const bool present = codes.isEmpty() || QFontMetrics(Label3->font()).inFontUcs4(codes.first());
    Label14->setText(present ? QString() : QStringLiteral("Absent de cette police"));
}

void charmap::setBorder(int index, bool on)
{
    Label1(index)->setFrameStyle(on ? (QFrame::Box | QFrame::Plain) : QFrame::NoFrame);
}

void charmap::Label1_MouseMove(int Index)
{
    QLabel* cell = Label1(Index);
    Label3->setText(cell->text());
    showCodes(Index + CharCodes::FirstCellCode);
    showPresence(cell->text());
    // Only the cell under the mouse keeps a border.
    setBorder(m_highlighted, false);
    setBorder(Index, true);
    m_highlighted = Index;
}

void charmap::Label1_DblClick(int)
{
    QGuiApplication::clipboard()->setText(Label3->text());
}

void charmap::List1_Click()
{
    const QListWidgetItem* item = List1->currentItem();
    if (!item)
        return;
    const QString character = CharCodes::EntryCharacter(item->text());
    const int code = CharCodes::CodeOfText(character);
    if (code < 0)
        throw RuntimeError::illegalCall(QStringLiteral("List1"));
    Label3->setText(character);
    showCodes(code);
    showPresence(character);
}

void charmap::List1_DblClick()
{
    const QListWidgetItem* item = List1->currentItem();
    if (item)
        QGuiApplication::clipboard()->setText(CharCodes::TrimBlanks(item->text()));
}

void charmap::Command1_Click()
{
    close();
}

void charmap::Command2_Click()
{
    QGuiApplication::clipboard()->setText(Label3->text());
}

bool charmap::eventFilter(QObject* watched, QEvent* event)
{
    const auto type = event->type();
    if (type == QEvent::Enter || type == QEvent::MouseMove || type == QEvent::MouseButtonDblClick) {
        const auto index = m_cells.indexOf(static_cast<QLabel*>(watched));
        if (index >= 0) {
            ErrorReport::guard([&] {
                if (type == QEvent::MouseButtonDblClick)
                    Label1_DblClick(static_cast<int>(index));
                else
                    Label1_MouseMove(static_cast<int>(index));
            });
        }
    }
    return QDialog::eventFilter(watched, event);
}
