// Start-up: the donation splash, then the main window.
#include "app/debut.h"

#include "app/splash.h"
#include "app/tglyphora.h"
#include "components/errorreport.h"
#include "components/settings.h"
#include "fontfile/previewfiles.h"

#include <QTimer>

#include <memory>

namespace debut {

void Main()
{
    Main(QStringList());
}

void Main(const QStringList& files)
{
    Settings::CheckReadable(); // before the first setting is read
    const QString thanks = Settings::GetSetting(QStringLiteral("Glyphora"), QStringLiteral("Donation"),
                                                QStringLiteral("Merci"), QString());
    if (thanks.isEmpty()) {
        auto splash = std::make_unique<Splash>();
        splash->exec();
        splash.reset(); // unloading an already closed splash is harmless
    }
    auto* window = new tglyphora;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    if (!files.isEmpty()) {
        // From the event loop, over the main window, as a menu command would open it.
        QTimer::singleShot(0, window, [window, files] {
            ErrorReport::guard([&] { PreviewFiles::open(window, files); });
        });
    }
}

} // namespace debut
