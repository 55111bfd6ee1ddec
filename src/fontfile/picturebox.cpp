// PictureBox: the backing image grows with the widget and keeps its drawing.
#include "fontfile/picturebox.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRegularExpression>
#include <QWheelEvent>
#include <algorithm>

namespace {

constexpr double inchesPerMetre = 39.3701;

} // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    coverSize(QSize(1, 1));
}

void PictureBox::coverSize(const QSize& size)
{
    const QSize wanted = m_image.size().expandedTo(size).expandedTo(QSize(1, 1));
    if (wanted == m_image.size())
        return;
    QImage grown(wanted, QImage::Format_RGB32);
    // Points become pixels at the screen's resolution, as on the widget itself.
    grown.setDotsPerMeterX(qRound(logicalDpiX() * inchesPerMetre));
    grown.setDotsPerMeterY(qRound(logicalDpiY() * inchesPerMetre));
    grown.fill(palette().color(QPalette::Base));
    if (!m_image.isNull()) {
        QPainter painter(&grown);
        painter.drawImage(0, 0, m_image);
    }
    m_image = grown;
}

void PictureBox::Cls()
{
    // A drawing that grew below the bottom gives its memory back.
    if (m_grown) {
        m_image = QImage();
        m_grown = false;
    }
    coverSize(size());
    m_image.fill(palette().color(QPalette::Base));
    m_x = 0;
    m_y = 0;
    m_contentHeight = 0;
    Q_EMIT ContentHeightChanged(0);
    setScrollY(0);
    update();
}

void PictureBox::setScrollY(int y)
{
    const int bounded = std::clamp(y, 0, std::max(0, m_contentHeight - height()));
    if (bounded == m_scroll)
        return;
    m_scroll = bounded;
    update();
    Q_EMIT ScrollYChanged(m_scroll);
}

void PictureBox::wheelEvent(QWheelEvent* event)
{
    setScrollY(m_scroll - event->angleDelta().y() / 2);
    event->accept();
}

int PictureBox::TextHeight() const
{
    return QFontMetrics(font(), &m_image).height();
}

void PictureBox::Print(const QString& text)
{
    static const QRegularExpression breaks(QStringLiteral("\r\n|\r|\n"));
    const QStringList lines = text.split(breaks);
    QPainter painter(&m_image);
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::Text));
    const QFontMetrics metrics(font(), &m_image);
    for (const QString& line : lines) {
        if (m_y + metrics.height() > m_image.height() && m_image.height() < maxHeight) {
            painter.end();
            coverSize(QSize(m_image.width(), std::min(maxHeight, std::max(2 * m_image.height(), m_y + metrics.height()))));
            m_grown = true;
            painter.begin(&m_image);
            painter.setFont(font());
            painter.setPen(palette().color(QPalette::Text));
        }
        if (!line.isEmpty())
            painter.drawText(m_x, m_y + metrics.ascent(), line);
        m_x = 0;
        m_y += metrics.height();
    }
    if (std::min(m_y, m_image.height()) > m_contentHeight) {
        m_contentHeight = std::min(m_y, m_image.height());
        Q_EMIT ContentHeightChanged(m_contentHeight);
    }
    update();
}

void PictureBox::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.drawImage(0, -m_scroll, m_image);
}

void PictureBox::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    coverSize(size());
}
