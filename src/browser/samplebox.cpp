// Sample box: plain text only; Tab moves the focus and Ctrl+Tab inserts a tab.
#include "browser/samplebox.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextOption>

SampleBox::SampleBox(QWidget* parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
}

QString SampleBox::text() const
{
    QString plain = toPlainText();
    plain.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    plain.replace(QChar::LineSeparator, QLatin1Char('\n'));
    return plain.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
}

void SampleBox::setText(const QString& text)
{
    static const QRegularExpression breaks(QStringLiteral("\r\n|\r"));
    QString plain = text;
    setPlainText(plain.replace(breaks, QStringLiteral("\n")));
    verticalScrollBar()->setValue(0);
}

void SampleBox::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    // A new font re-wraps the lines; a box whose cursor is at the start shows its start.
    if (event->type() == QEvent::FontChange && textCursor().position() == 0)
        verticalScrollBar()->setValue(0);
}

void SampleBox::setAlignment(int code)
{
    m_alignment = code;
    Qt::Alignment flag = Qt::AlignLeft;
    if (code == AlignRight)
        flag = Qt::AlignRight;
    else if (code == AlignCenter)
        flag = Qt::AlignHCenter;
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(flag);
    document()->setDefaultTextOption(option);
    // Alignment against the widest line needs the viewport's width, not the text's.
    setLineWrapMode(code == AlignLeft ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
    viewport()->update();
}

QColor SampleBox::ForeColor() const
{
    return palette().color(QPalette::Text);
}

void SampleBox::setForeColor(const QColor& color)
{
    QPalette p = palette();
    for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        p.setColor(group, QPalette::Text, color);
        p.setColor(group, QPalette::WindowText, color);
    }
    setPalette(p);
}

QColor SampleBox::BackColor() const
{
    return palette().color(QPalette::Base);
}

void SampleBox::setBackColor(const QColor& color)
{
    QPalette p = palette();
    for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        p.setColor(group, QPalette::Base, color);
    setPalette(p);
}

void SampleBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Tab && (event->modifiers() & Qt::ControlModifier)) {
        insertPlainText(QStringLiteral("\t"));
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void SampleBox::insertFromMimeData(const QMimeData* source)
{
    if (source && source->hasText())
        insertPlainText(source->text());
}
