// The program-wide printer: the system's default printer through Qt Print Support.
// It measures text on the printer's surface in a chosen unit, prints lines in a chosen
// font with page flow, and sends the document when told to end it (or at exit).
#pragma once

#include <QFont>
#include <QPrinterInfo>
#include <QString>
#include <future>
#include <memory>

class QFontMetricsF;
class PageFlow;
class QPageLayout;
class QPainter;
class QPaintDevice;
class QPrinter;

class Printer {
public:
    static Printer& instance();
    ~Printer();

    // Starts asking the system for its default printer on another thread, so that the
    // answer is ready when the main window first needs it.
    void lookUpInBackground();
    // The default printer's name; empty when no printer is installed.
    QString DeviceName();
    bool isInstalled();

    QFont Font() const { return m_font; }
    void setFont(const QFont& font) { m_font = font; }
    void setFontName(const QString& name) { m_font.setFamily(name); }
    void setFontSize(double points);

    int ScaleMode() const { return m_scaleMode; }
    void setScaleMode(int code);

    // Pixels per inch of the printer surface (Qt's stand-in surface when there is no
    // printer, so that measuring still works).
    int resolution();
    // Width of the widest line and height of all lines (an empty text is one line), in
    // the current scale unit, with the current font.
    double TextWidth(const QString& text);
    double TextHeight(const QString& text);
    // The arithmetic of the two above, in device pixels, for any surface's metrics.
    static double widestLine(const QFontMetricsF& metrics, const QString& text);
    static double linesHeight(const QFontMetricsF& metrics, const QString& text);

    // Prints each line of the text (CR LF, LF or CR separate lines) in the current font,
    // moving to a new page when a line no longer fits. Throws RuntimeError 482 when
    // there is no printer.
    void Print(const QString& text);
    // Opens the document if none is open, so that ending it sends a job even when
    // nothing was printed. Throws RuntimeError 482 when there is no printer.
    void beginDocument();
    // Sends the open document, if any, to the printer.
    void EndDoc();
    bool hasOpenDocument() const { return m_painter != nullptr; }
    // The open document's page flow (the document is opened if need be), for pages
    // drawn by other code in the same document. Throws like beginDocument.
    PageFlow& flow();

    // The printer's page layout, and a fresh device on the same printer (for a print
    // preview or a separate job), with the same resolution and document name.
    QPageLayout pageLayout();
    std::unique_ptr<QPrinter> newDevice();

    // The title the print jobs carry ("Glyphora" unless changed); it names the job in
    // the queue and the file a PDF queue writes. Takes effect from the next document.
    QString documentName() const { return m_documentName; }
    void setDocumentName(const QString& name);

    // Forgets the printer so that the next use asks the system again (the default
    // printer may have changed). An open document is sent first.
    void reset();

private:
    Printer();
    void resolve();
    QPrinter& device();

    struct Lookup {
        QString name;
        QPrinterInfo info;
    };
    std::future<Lookup> m_lookup;
    QPrinterInfo m_info;

    std::unique_ptr<QPrinter> m_printer;
    std::unique_ptr<QPainter> m_painter;
    std::unique_ptr<PageFlow> m_flow;
    QString m_deviceName;
    bool m_resolved = false;
    QString m_documentName = QStringLiteral("Glyphora");
    QFont m_font;
    int m_scaleMode = 1;
};
