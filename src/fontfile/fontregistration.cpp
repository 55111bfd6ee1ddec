// Application fonts through QFontDatabase; known families from the enumeration.
#include "fontfile/fontregistration.h"

#include "browser/enumfont.h"
#include "components/boundedfile.h"
#include "fontfile/fontsystem.h"
#include "fontfile/webfont.h"

#include <QApplication>
#include <QFileInfo>
#include <QFontDatabase>
#include <QSet>
#include <QWidget>

namespace FontRegistration {

namespace {

QSet<int>& registrations()
{
    static QSet<int> ids;
    return ids;
}

// The enumerated families, rebuilt on the first question after any font change.
struct FamilyCache {
    QSet<QString> names;
    bool fresh = false;
    bool watching = false;
};

FamilyCache& familyCache()
{
    static FamilyCache cache;
    return cache;
}

void forgetFamilies()
{
    familyCache().fresh = false;
}

const QSet<QString>& enumeratedFamilies()
{
    FamilyCache& cache = familyCache();
    if (!cache.watching) {
        if (auto* app = qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
            QObject::connect(app, &QGuiApplication::fontDatabaseChanged, app, &forgetFamilies);
            cache.watching = true;
        }
    }
    if (!cache.fresh) {
        const QStringList families = EnumFont::families();
        cache.names = QSet<QString>(families.begin(), families.end());
        cache.fresh = cache.watching; // without an application object nothing tells of changes
    }
    return cache.names;
}

} // namespace

namespace {

int remember(int id)
{
    if (id < 0)
        return -1;
    registrations().insert(id);
    forgetFamilies();
    return id;
}

} // namespace

int add(const QString& path)
{
    // The bytes are handed over, not the path: read once, bounded, from a regular file.
    const BoundedFile::Result file = BoundedFile::read(path, BoundedFile::FontLimit);
    if (!file.ok())
        return -1;
    return remember(QFontDatabase::addApplicationFontFromData(file.bytes));
}

int addData(const QByteArray& sfnt)
{
    return remember(QFontDatabase::addApplicationFontFromData(sfnt));
}

bool remove(int id)
{
    if (!registrations().remove(id))
        return false;
    QFontDatabase::removeApplicationFont(id);
    forgetFamilies();
    return true;
}

QStringList registeredFamilies()
{
    QStringList families;
    for (int id : registrations())
        families += QFontDatabase::applicationFontFamilies(id);
    return families;
}

bool isKnownFace(const QString& name)
{
    if (name.isEmpty())
        return false;
    return registeredFamilies().contains(name, Qt::CaseSensitive) || enumeratedFamilies().contains(name);
}

QEvent::Type fontChangeEventType()
{
    static const auto type = QEvent::Type(QEvent::registerEventType());
    return type;
}

void announceFontChange()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        QEvent event(fontChangeEventType());
        QCoreApplication::sendEvent(window, &event);
    }
}

QString faceNameOfFile(const QString& path)
{
    return FontSystem::familyOfFile(path);
}

QStringList faceNamesOfFile(const QString& path, QString* refusal)
{
    const WebFont::Decoded web = WebFont::decodeFile(path);
    if (refusal)
        *refusal = WebFont::refusal(web, QFileInfo(path).fileName());
    if (web.status == WebFont::Status::Decoded)
        return FontSystem::familiesOfData(web.sfnt, maxFaces);
    if (web.status != WebFont::Status::NotWebFont)
        return {};
    return FontSystem::familiesOfFile(path, maxFaces);
}

} // namespace FontRegistration
