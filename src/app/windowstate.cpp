// Main window geometry kept between runs in "Fenetre".
#include "app/windowstate.h"

#include "app/tglyphora.h"
#include "components/conversions.h"
#include "components/ctlebsplitter.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <optional>

namespace WindowState {

namespace {

const QString group = QStringLiteral("Fenetre");

QSettings store()
{
    return QSettings(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
}

// A stored whole number within low..high; nullopt for anything else.
std::optional<int> number(const QSettings& settings, const char* key, int low, int high)
{
    const QVariant value = settings.value(group + QLatin1Char('/') + QLatin1String(key));
    const auto parsed = Conversions::parseNumber(value.toString());
    if (!value.isValid() || !parsed || *parsed < low || *parsed > high)
        return std::nullopt;
    return static_cast<int>(*parsed);
}

// True when at least a corner's worth of the rectangle lies on some screen.
bool onSomeScreen(const QRect& rect)
{
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect shared = screen->availableGeometry().intersected(rect);
        if (shared.width() >= 50 && shared.height() >= 50)
            return true;
    }
    return false;
}

} // namespace

void restore(tglyphora& window)
{
    const QSettings settings = store();
    const auto width = number(settings, "Largeur", 200, 20000);
    const auto height = number(settings, "Hauteur", 150, 20000);
    const auto left = number(settings, "Gauche", -20000, 20000);
    const auto top = number(settings, "Haut", -20000, 20000);
    if (width && height) {
        QRect geometry(window.geometry().topLeft(), QSize(*width, *height));
        if (left && top)
            geometry.moveTopLeft(QPoint(*left, *top));
        if (onSomeScreen(geometry))
            window.setGeometry(geometry);
        else
            window.resize(geometry.size());
    }
    if (number(settings, "Maximisee", 0, 1).value_or(0) == 1)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void restoreSplitters(tglyphora& window)
{
    const QSettings settings = store();
    if (const auto outer = number(settings, "Separation1", 0, 1000000))
        window.ctlEBSplitter1->setSplitterPos(*outer);
    if (const auto inner = number(settings, "Separation2", 0, 1000000))
        window.ctlEBSplitter2->setSplitterPos(*inner);
}

void save(const tglyphora& window)
{
    QSettings settings = store();
    settings.beginGroup(group);
    const QRect normal = window.isMaximized() || window.isMinimized() ? window.normalGeometry() : window.geometry();
    if (normal.isValid()) {
        settings.setValue(QStringLiteral("Gauche"), QString::number(normal.left()));
        settings.setValue(QStringLiteral("Haut"), QString::number(normal.top()));
        settings.setValue(QStringLiteral("Largeur"), QString::number(normal.width()));
        settings.setValue(QStringLiteral("Hauteur"), QString::number(normal.height()));
    }
    settings.setValue(QStringLiteral("Maximisee"), window.isMaximized() ? QStringLiteral("1") : QStringLiteral("0"));
    settings.setValue(QStringLiteral("Separation1"), QString::number(window.ctlEBSplitter1->SplitterPos()));
    settings.setValue(QStringLiteral("Separation2"), QString::number(window.ctlEBSplitter2->SplitterPos()));
    settings.endGroup();
    settings.sync();
}

} // namespace WindowState
