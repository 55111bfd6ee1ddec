// Printer: QPrinter on the default CUPS queue, created on first use.
#include "components/printer.h"

#include "components/pageflow.h"
#include "components/runtimeerror.h"
#include "components/scalemode.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

Printer& Printer::instance()
{
    static Printer* printer = [] {
        auto* p = new Printer;
        // An unended document is sent when the program ends.
        if (QCoreApplication::instance())
            QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, [p] { p->EndDoc(); });
        return p;
    }();
    return *printer;
}

Printer::Printer()
{
    m_font.setPointSizeF(12);
}

Printer::~Printer()
{
    EndDoc();
}

void Printer::lookUpInBackground()
{
    if (m_resolved || m_lookup.valid())
        return;
    m_lookup = std::async(std::launch::async, [] {
        Lookup found;
        found.name = QPrinterInfo::defaultPrinterName();
        if (!found.name.isEmpty())
            found.info = QPrinterInfo::printerInfo(found.name);
        return found;
    });
}

void Printer::resolve()
{
    if (m_resolved)
        return;
    if (m_lookup.valid()) {
        Lookup found = m_lookup.get();
        m_deviceName = found.name;
        m_info = found.info;
    } else {
        m_deviceName = QPrinterInfo::defaultPrinterName();
        if (!m_deviceName.isEmpty())
            m_info = QPrinterInfo::printerInfo(m_deviceName);
    }
    m_resolved = true;
}

QString Printer::DeviceName()
{
    resolve();
    return m_deviceName;
}

bool Printer::isInstalled()
{
    return !DeviceName().isEmpty();
}

std::unique_ptr<QPrinter> Printer::newDevice()
{
    std::unique_ptr<QPrinter> printer;
    if (isInstalled())
        printer = std::make_unique<QPrinter>(m_info, QPrinter::HighResolution);
    else
        printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(m_documentName);
    return printer;
}

QPrinter& Printer::device()
{
    if (!m_printer)
        m_printer = newDevice();
    return *m_printer;
}

QPageLayout Printer::pageLayout()
{
    return device().pageLayout();
}

void Printer::setDocumentName(const QString& name)
{
    m_documentName = name;
    if (m_printer && !m_painter)
        m_printer->setDocName(name);
}

void Printer::setFontSize(double points)
{
    if (points > 0)
        m_font.setPointSizeF(points);
}

void Printer::setScaleMode(int code)
{
    if (ScaleMode::isValid(code))
        m_scaleMode = code;
    else
        throw RuntimeError::illegalCall(QStringLiteral("Printer.ScaleMode"));
}

int Printer::resolution()
{
    return device().resolution();
}

double Printer::widestLine(const QFontMetricsF& metrics, const QString& text)
{
    double widest = 0;
    for (const QString& line : PageFlow::splitLines(text))
        widest = std::max(widest, metrics.horizontalAdvance(line));
    return widest;
}

double Printer::linesHeight(const QFontMetricsF& metrics, const QString& text)
{
    return metrics.lineSpacing() * static_cast<double>(PageFlow::splitLines(text).size());
}

double Printer::TextWidth(const QString& text)
{
    QPrinter& printer = device();
    const QFontMetricsF metrics(m_font, &printer);
    return ScaleMode::fromDevicePixels(widestLine(metrics, text), printer.resolution(), m_scaleMode, false);
}

double Printer::TextHeight(const QString& text)
{
    QPrinter& printer = device();
    const QFontMetricsF metrics(m_font, &printer);
    return ScaleMode::fromDevicePixels(linesHeight(metrics, text), printer.resolution(), m_scaleMode, true);
}

void Printer::beginDocument()
{
    if (m_painter)
        return;
    if (!isInstalled())
        throw RuntimeError::printerError(QStringLiteral("Printer"));
    auto painter = std::make_unique<QPainter>();
    if (!painter->begin(&device()))
        throw RuntimeError::printerError(QStringLiteral("Printer"));
    QPrinter* printer = &device();
    const QRect page = printer->pageLayout().paintRectPixels(printer->resolution());
    m_flow = std::make_unique<PageFlow>(*painter, page.width(), page.height(), [printer] { printer->newPage(); });
    m_painter = std::move(painter);
}

PageFlow& Printer::flow()
{
    beginDocument();
    return *m_flow;
}

void Printer::Print(const QString& text)
{
    flow().printLines(m_font, text);
}

void Printer::EndDoc()
{
    if (!m_painter)
        return;
    m_flow.reset();
    m_painter->end();
    m_painter.reset();
}

void Printer::reset()
{
    EndDoc();
    m_printer.reset();
    if (m_lookup.valid())
        m_lookup.wait();
    m_lookup = {};
    m_resolved = false;
    m_deviceName.clear();
    m_info = QPrinterInfo();
}
