// The worker that draws font names in their own font: every requested image arrives
// and is drawn off the caller's thread, images made for older settings are dropped, and
// the renderer can be destroyed while it is drawing.
#include "browser/namerenderer.h"
#include "support/testsupport.h"

#include <QFontDatabase>
#include <QSignalSpy>

namespace {

// Ink in an 8-bit alpha mask.
int inkedPixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        const uchar* line = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x)
            count += line[x] != 0;
    }
    return count;
}

} // namespace

class TestNameRenderer : public QObject {
    Q_OBJECT

    static QFont interfaceFont() { return QFontDatabase::systemFont(QFontDatabase::GeneralFont); }

private Q_SLOTS:
    void everyImageArrives()
    {
        NameRenderer renderer;
        renderer.setGeometry(interfaceFont(), 18, 1);
        QSignalSpy ready(&renderer, &NameRenderer::imageReady);
        // Each name stands for a family of its own (they all fall back on one face here).
        constexpr int count = 340;
        QList<NameRenderer::Request> requests;
        for (int i = 0; i < count; ++i)
            requests.append({QStringLiteral("DejaVu Sans %1").arg(i), true, QString()});
        for (const NameRenderer::Request& request : requests)
            QVERIFY(renderer.image(request).isNull()); // nothing is drawn on the caller's thread
        QVERIFY(TestSupport::waitFor([&] { return renderer.pendingCount() == 0; }, 120000));
        QCOMPARE(ready.count(), count);
        for (const NameRenderer::Request& request : requests) {
            const QImage image = renderer.image(request);
            QVERIFY(!image.isNull());
            QCOMPARE(image.height(), 18);
            QVERIFY(inkedPixels(image) > 20);
        }
        QCOMPARE(renderer.pendingCount(), 0); // all were served from the cache
    }

    void imagesForOlderSettingsAreDropped()
    {
        NameRenderer renderer;
        renderer.setGeometry(interfaceFont(), 18, 1);
        const NameRenderer::Request request{QStringLiteral("DejaVu Serif"), true, QString()};
        QVERIFY(renderer.image(request).isNull());
        // A new row height before the image arrives: the old image is never delivered.
        renderer.setGeometry(interfaceFont(), 24, 1);
        QVERIFY(renderer.image(request).isNull());
        QVERIFY(TestSupport::waitFor([&] { return !renderer.image(request).isNull(); }, 30000));
        QCOMPARE(renderer.image(request).height(), 24);
    }

    void destroyedWhileDrawing()
    {
        // Ending with requests queued and one being drawn must neither hang nor crash.
        QSignalSpy* ready = nullptr;
        auto renderer = std::make_unique<NameRenderer>();
        renderer->setGeometry(interfaceFont(), 18, 1);
        ready = new QSignalSpy(renderer.get(), &NameRenderer::imageReady);
        for (int i = 0; i < 200; ++i)
            renderer->image({QStringLiteral("Famille %1").arg(i), true, QString()});
        QVERIFY(TestSupport::waitFor([&] { return ready->count() >= 3; }, 60000));
        delete ready;
        renderer.reset();
    }
};

GLYPHORA_TEST_MAIN(TestNameRenderer)
#include "test_namerenderer.moc"
