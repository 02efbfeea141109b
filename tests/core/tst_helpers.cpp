#include <Orvane/orvanecore.h>

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QPaintEngine>
#include <QPainter>
#include <QTemporaryDir>
#include <QUrl>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>
#include <set>

Q_DECLARE_METATYPE(QMargins)

// A host whose main window is not a QMainWindow but is named so.
class MainWindow : public QWidget
{
    Q_OBJECT
};

namespace Host {
// Same name inside a namespace: Qt reports "Host::MainWindow", which is not it.
class MainWindow : public QWidget
{
    Q_OBJECT
};
} // namespace Host

namespace {

// A widget that asks for a fixed size, for the size-hint centring.
class HintedWidget : public QWidget
{
public:
    QSize sizeHint() const override { return QSize(120, 80); }
};

using Piece = QPair<QRect, QRect>; // source, target
using Pieces = QVector<Piece>;

// The two debug lines of centring a HintedWidget on a main window whose
// geometry starts at `corner`.
void expectCentringLines(const QPoint &corner)
{
    QTest::ignoreMessage(QtDebugMsg,
                         qPrintable(QStringLiteral("wnd center: QPoint(%1,%2)").arg(corner.x()).arg(corner.y())));
    QTest::ignoreMessage(QtDebugMsg, "sz: QSize(120, 80)");
}

// The columns of the nine-slice data: pixmap size, margins, target size.
void addStretchColumns()
{
    QTest::addColumn<QSize>("pixmapSize");
    QTest::addColumn<QMargins>("margins");
    QTest::addColumn<QSize>("size");
}

using Span = QPair<int, int>; // position, length
using Spans = QVector<Span>;

// The nine pieces of a grid, row by row, each column left to right.
Pieces gridPieces(const Spans &sourceColumns, const Spans &sourceRows, const Spans &targetColumns,
                  const Spans &targetRows)
{
    Pieces pieces;
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 3; ++col) {
            pieces.append(Piece(QRect(sourceColumns[col].first, sourceRows[row].first, sourceColumns[col].second,
                                      sourceRows[row].second),
                                QRect(targetColumns[col].first, targetRows[row].first, targetColumns[col].second,
                                      targetRows[row].second)));
        }
    }
    return pieces;
}

// Records every pixmap the painter draws, with its source and target.
class RecordingEngine : public QPaintEngine
{
public:
    RecordingEngine() : QPaintEngine(QPaintEngine::AllFeatures) {}
    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    void drawPixmap(const QRectF &r, const QPixmap &, const QRectF &sr) override
    {
        pieces.append(Piece(sr.toRect(), r.toRect()));
    }
    Type type() const override { return QPaintEngine::User; }

    Pieces pieces;
};

class RecordingDevice : public QPaintDevice
{
public:
    QPaintEngine *paintEngine() const override { return &m_engine; }
    const Pieces &pieces() const { return m_engine.pieces; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return 1000;
        case PdmWidthMM:
        case PdmHeightMM:
            return 264;
        case PdmDepth:
            return 32;
        case PdmNumColors:
            return INT_MAX;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        }
        return 0;
    }

private:
    mutable RecordingEngine m_engine;
};

// The nine regions of a pixmap cut by `m`: 0 1 2 / 3 4 5 / 6 7 8.
int regionOf(int x, int y, int w, int h, const QMargins &m)
{
    const int col = x < m.left() ? 0 : (x >= w - m.right() ? 2 : 1);
    const int row = y < m.top() ? 0 : (y >= h - m.bottom() ? 2 : 1);
    return row * 3 + col;
}

int blueOfRegion(int region) { return 20 + region * 25; }

// Every pixel says where it came from: red = 8x, green = 8y, blue = region.
QPixmap codedPixmap(int w, int h, const QMargins &m)
{
    QImage image(w, h, QImage::Format_ARGB32);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            image.setPixel(x, y, qRgb(x * 8, y * 8, blueOfRegion(regionOf(x, y, w, h, m))));
    return QPixmap::fromImage(image);
}

QImage paintStretched(const QSize &size, const QPixmap &pixmap, const QMargins &margins)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    Orvane::drawStretchedImage(painter, size, pixmap, margins);
    painter.end();
    return image;
}

QImage paintScaled(const QSize &size, const QPixmap &pixmap)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.drawPixmap(QRect(QPoint(0, 0), size), pixmap);
    painter.end();
    return image;
}

QImage solidImage(int w, int h, QRgb colour)
{
    QImage image(w, h, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

} // namespace

class tst_Helpers : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void openedUrl(const QUrl &url) { m_openedUrls.append(url); }

private Q_SLOTS:
    void cleanup();

    void makeBoxLayout_data();
    void makeBoxLayout();
    void makeBoxLayoutOnParentWithLayout();

    void findMainWindowNone();
    void findMainWindowPrefersQMainWindow();
    void findMainWindowByClassName();
    void findMainWindowIgnoresOtherNames();
    void findMainWindowOnlyTopLevel();

    void moveToCenterIgnoresSecondArgument_data();
    void moveToCenterIgnoresSecondArgument();
    void moveToCenterOverNamedMainWindow();
    void moveToCenterWithoutMainWindow();
    void moveToCenterNullWidget();

    void moveToCenterOfWindow_data();
    void moveToCenterOfWindow();
    void moveToCenterOfWindowLastWins();
    void moveToCenterOfWindowNothing();

    void openWebURL_data();
    void openWebURL();

    void tintEmptyNameLeavesPixmap();
    void tintRed();
    void tintInvalidName();
    void loadImageWithTintColor();
    void loadImageGuessesFormat();
    void loadImageMissingFile();

    void smartAppendPath_data();
    void smartAppendPath();

    void stretchedPieces_data();
    void stretchedPieces();
    void stretchedPixels_data();
    void stretchedPixels();
    void stretchedClampsSourceMiddle();
    void stretchedFallsBackToScaled_data();
    void stretchedFallsBackToScaled();
    void stretchedExactFit();
    void stretchedBadInput_data();
    void stretchedBadInput();

private:
    QList<QUrl> m_openedUrls;
};

void tst_Helpers::cleanup()
{
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

// --- layouts ---------------------------------------------------------------

void tst_Helpers::makeBoxLayout_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<bool>("parented");
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("spacing");

    QTest::newRow("horizontal on a parent") << false << true << 5 << 7;
    QTest::newRow("vertical on a parent") << true << true << 0 << 12;
    QTest::newRow("horizontal without parent") << false << false << 3 << 4;
    QTest::newRow("vertical without parent") << true << false << 9 << 1;
}

void tst_Helpers::makeBoxLayout()
{
    QFETCH(bool, vertical);
    QFETCH(bool, parented);
    QFETCH(int, margin);
    QFETCH(int, spacing);

    QWidget w;
    QWidget *parent = parented ? &w : nullptr;
    QBoxLayout *box = vertical ? static_cast<QBoxLayout *>(Orvane::makeVBoxLayout(parent, margin, spacing))
                               : static_cast<QBoxLayout *>(Orvane::makeHBoxLayout(parent, margin, spacing));
    QVERIFY(box);
    std::unique_ptr<QBoxLayout> unowned(parented ? nullptr : box);
    QCOMPARE(bool(qobject_cast<QVBoxLayout *>(box)), vertical);
    QCOMPARE(bool(qobject_cast<QHBoxLayout *>(box)), !vertical);
    QCOMPARE(box->direction(), vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    QCOMPARE(box->contentsMargins(), QMargins(margin, margin, margin, margin));
    QCOMPARE(box->spacing(), spacing);
    QCOMPARE(box->parent(), static_cast<QObject *>(parent));
    QCOMPARE(w.layout(), parented ? box : nullptr);

    // A layout made without parent is usable once the caller installs it.
    if (!parented) {
        w.setLayout(unowned.release());
        QCOMPARE(w.layout(), box);
    }
}

void tst_Helpers::makeBoxLayoutOnParentWithLayout()
{
    QWidget w;
    QHBoxLayout *first = Orvane::makeHBoxLayout(&w, 1, 1);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("already has a layout"));
    std::unique_ptr<QVBoxLayout> second(Orvane::makeVBoxLayout(&w, 2, 2));
    QCOMPARE(w.layout(), first);
    QVERIFY(!second->parent());
    QCOMPARE(second->spacing(), 2);
}

// --- finding the main window -----------------------------------------------

void tst_Helpers::findMainWindowNone()
{
    QTest::ignoreMessage(QtDebugMsg, "find mainWindow");
    QCOMPARE(Orvane::findMainWindow(), nullptr);

    QWidget plain;
    QTest::ignoreMessage(QtDebugMsg, "find mainWindow");
    QCOMPARE(Orvane::findMainWindow(), nullptr);
}

void tst_Helpers::findMainWindowPrefersQMainWindow()
{
    // Made first, but the QMainWindow wins the first walk.
    MainWindow named;
    QWidget plain;
    QMainWindow main;
    QCOMPARE(Orvane::findMainWindow(), &main);
}

void tst_Helpers::findMainWindowByClassName()
{
    QWidget plain;
    MainWindow named;
    QCOMPARE(named.metaObject()->className(), "MainWindow");
    QTest::ignoreMessage(QtDebugMsg, "find mainWindow");
    QCOMPARE(Orvane::findMainWindow(), &named);
}

void tst_Helpers::findMainWindowIgnoresOtherNames()
{
    Host::MainWindow qualified;
    QCOMPARE(qualified.metaObject()->className(), "Host::MainWindow");
    QTest::ignoreMessage(QtDebugMsg, "find mainWindow");
    QCOMPARE(Orvane::findMainWindow(), nullptr);
}

void tst_Helpers::findMainWindowOnlyTopLevel()
{
    QWidget container;
    auto *inner = new QMainWindow(&container);
    inner->setWindowFlags(Qt::Widget);
    auto *innerNamed = new MainWindow;
    innerNamed->setParent(&container);
    QVERIFY(!inner->isWindow());
    QTest::ignoreMessage(QtDebugMsg, "find mainWindow");
    QCOMPARE(Orvane::findMainWindow(), nullptr);
}

// --- centring over the main window -----------------------------------------

void tst_Helpers::moveToCenterIgnoresSecondArgument_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("offset");

    QTest::newRow("even") << QSize(200, 100) << QPoint(100, 100);
    QTest::newRow("odd difference truncates") << QSize(201, 101) << QPoint(99, 99);
    QTest::newRow("same size") << QSize(400, 300) << QPoint(0, 0);
    QTest::newRow("larger truncates toward zero") << QSize(501, 403) << QPoint(-50, -51);
}

void tst_Helpers::moveToCenterIgnoresSecondArgument()
{
    QFETCH(QSize, size);
    QFETCH(QPoint, offset);

    QMainWindow main;
    main.setGeometry(100, 120, 400, 300);
    main.show();
    QVERIFY(QTest::qWaitForWindowExposed(&main));

    QWidget other;
    other.setGeometry(700, 500, 60, 40);
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));

    QWidget widget;
    widget.resize(size);
    Orvane::moveToCenter(&widget, &other);
    QCOMPARE(widget.pos(), main.mapToGlobal(offset));
    QCOMPARE(widget.pos(), main.geometry().topLeft() + offset);
    QCOMPARE(widget.size(), size);
}

void tst_Helpers::moveToCenterOverNamedMainWindow()
{
    MainWindow named;
    named.setGeometry(50, 60, 300, 200);
    named.show();
    QVERIFY(QTest::qWaitForWindowExposed(&named));

    QWidget widget;
    widget.resize(100, 50);
    QTest::ignoreMessage(QtDebugMsg, "find mainWindow");
    Orvane::moveToCenter(&widget, nullptr);
    QCOMPARE(widget.pos(), named.mapToGlobal(QPoint(100, 75)));
}

void tst_Helpers::moveToCenterWithoutMainWindow()
{
    QWidget other;
    other.setGeometry(300, 300, 400, 400);
    QWidget widget;
    widget.setGeometry(10, 20, 100, 50);
    QTest::ignoreMessage(QtDebugMsg, "find mainWindow");
    Orvane::moveToCenter(&widget, &other);
    QCOMPARE(widget.geometry(), QRect(10, 20, 100, 50));
}

void tst_Helpers::moveToCenterNullWidget()
{
    QMainWindow main;
    main.setGeometry(100, 100, 400, 300);
    Orvane::moveToCenter(nullptr, &main);
    Orvane::moveToCenter(nullptr, nullptr);
    QCOMPARE(main.geometry(), QRect(100, 100, 400, 300));
}

// --- centring on the main window's centre ----------------------------------

void tst_Helpers::moveToCenterOfWindow_data()
{
    QTest::addColumn<bool>("embedded");
    QTest::addColumn<QRect>("mainGeometry");
    QTest::addColumn<QRect>("expected");

    // Centres are (299, 249) and (109, 69); the size hint is 120 by 80.
    QTest::newRow("top-level main window") << false << QRect(100, 100, 400, 300) << QRect(239, 209, 120, 80);
    // Not only top-level windows count, and the geometry is in the parent's
    // coordinates.
    QTest::newRow("main window inside another widget") << true << QRect(10, 20, 200, 100) << QRect(49, 29, 120, 80);
}

void tst_Helpers::moveToCenterOfWindow()
{
    QFETCH(bool, embedded);
    QFETCH(QRect, mainGeometry);
    QFETCH(QRect, expected);

    QWidget container;
    container.setGeometry(300, 300, 500, 500);
    auto *main = new QMainWindow(embedded ? &container : nullptr);
    std::unique_ptr<QMainWindow> topLevel(embedded ? nullptr : main);
    if (embedded)
        main->setWindowFlags(Qt::Widget);
    QCOMPARE(main->isWindow(), !embedded);
    main->setGeometry(mainGeometry);
    HintedWidget widget;
    widget.setGeometry(0, 0, 10, 10);

    expectCentringLines(mainGeometry.topLeft());
    Orvane::moveToCenterOfWindow(&widget);
    QCOMPARE(widget.geometry(), expected);
}

void tst_Helpers::moveToCenterOfWindowLastWins()
{
    QMainWindow first;
    first.setGeometry(0, 0, 200, 200);
    // Both centred places lie wholly on the offscreen platform's screen, so
    // the rule's position stands (one off every screen would be moved on).
    QMainWindow second;
    second.setGeometry(300, 250, 400, 300);
    HintedWidget widget;

    QMainWindow *last = nullptr;
    for (QWidget *w : QApplication::allWidgets()) {
        if (auto *m = qobject_cast<QMainWindow *>(w))
            last = m;
    }
    QVERIFY(last);
    for (QWidget *w : QApplication::allWidgets()) {
        if (qobject_cast<QMainWindow *>(w))
            expectCentringLines(w->geometry().topLeft());
    }
    Orvane::moveToCenterOfWindow(&widget);
    const QPoint c = last->geometry().center();
    QCOMPARE(widget.geometry(), QRect(c.x() - 60, c.y() - 40, 120, 80));
}

void tst_Helpers::moveToCenterOfWindowNothing()
{
    Orvane::moveToCenterOfWindow(nullptr);

    HintedWidget widget;
    widget.setGeometry(5, 6, 7, 8);
    Orvane::moveToCenterOfWindow(&widget); // no main window: untouched
    QCOMPARE(widget.geometry(), QRect(5, 6, 7, 8));
}

// --- opening web addresses -------------------------------------------------

void tst_Helpers::openWebURL_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("received"); // empty: nothing is opened

    QTest::newRow("plain") << "orvanetest://example.com/page?pid=7&a=1"
                           << "orvanetest://example.com/page?pid=7&a=1";
    QTest::newRow("tolerant space") << "orvanetest://example.com/a b" << "orvanetest://example.com/a%20b";
    QTest::newRow("empty") << QString() << QString();
}

void tst_Helpers::openWebURL()
{
    QFETCH(QString, url);
    QFETCH(QString, received);

    m_openedUrls.clear();
    QDesktopServices::setUrlHandler(QStringLiteral("orvanetest"), this, "openedUrl");
    Orvane::openWebURL(url);
    QDesktopServices::unsetUrlHandler(QStringLiteral("orvanetest"));

    if (received.isEmpty()) {
        QVERIFY(m_openedUrls.isEmpty());
    } else {
        QCOMPARE(m_openedUrls.size(), 1);
        QCOMPARE(QString::fromLatin1(m_openedUrls.first().toEncoded()), received);
    }
}

// --- tinting ---------------------------------------------------------------

namespace {

// Left half transparent, then opaque green, blue and a half-transparent white.
QImage tintSource()
{
    QImage image(8, 4, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 0; y < 4; ++y) {
        image.setPixel(4, y, qRgba(0, 255, 0, 255));
        image.setPixel(5, y, qRgba(0, 0, 255, 255));
        image.setPixel(6, y, qRgba(255, 255, 255, 255));
        image.setPixel(7, y, qRgba(255, 255, 255, 128));
    }
    return image;
}

void verifyTinted(const QImage &result, QRgb colour)
{
    QCOMPARE(result.size(), QSize(8, 4));
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 4; ++x)
            QCOMPARE(qAlpha(result.pixel(x, y)), 0);
        for (int x = 4; x < 7; ++x)
            QCOMPARE(result.pixel(x, y), colour);
        // Half-transparent pixels keep their alpha and take the colour.
        const QRgb half = result.pixel(7, y);
        QVERIFY(qAbs(qAlpha(half) - 128) <= 1);
        QVERIFY(qAbs(qRed(half) - qRed(colour)) <= 2);
        QVERIFY(qAbs(qGreen(half) - qGreen(colour)) <= 2);
        QVERIFY(qAbs(qBlue(half) - qBlue(colour)) <= 2);
    }
}

} // namespace

void tst_Helpers::tintEmptyNameLeavesPixmap()
{
    const QImage source = tintSource();
    QPixmap pixmap = QPixmap::fromImage(source);
    Orvane::pixmapTintColor(pixmap, QString());
    QCOMPARE(pixmap.toImage().convertToFormat(QImage::Format_ARGB32), source);
    Orvane::pixmapTintColor(pixmap, QStringLiteral(""));
    QCOMPARE(pixmap.toImage().convertToFormat(QImage::Format_ARGB32), source);
}

void tst_Helpers::tintRed()
{
    QPixmap pixmap = QPixmap::fromImage(tintSource());
    Orvane::pixmapTintColor(pixmap, QStringLiteral("#FF0000"));
    verifyTinted(pixmap.toImage().convertToFormat(QImage::Format_ARGB32), qRgb(255, 0, 0));
}

void tst_Helpers::tintInvalidName()
{
    // No check is made: the invalid colour is filled as QColor renders it,
    // and the alpha channel still survives.
    const QColor invalid(QStringLiteral("no such colour"));
    QVERIFY(!invalid.isValid());
    QPixmap pixmap = QPixmap::fromImage(tintSource());
    Orvane::pixmapTintColor(pixmap, QStringLiteral("no such colour"));
    verifyTinted(pixmap.toImage().convertToFormat(QImage::Format_ARGB32), invalid.rgb());
}

void tst_Helpers::loadImageWithTintColor()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("icon.png"));
    QVERIFY(tintSource().save(path));

    const QPixmap tinted = Orvane::loadImageWithTintColor(path, QStringLiteral("#3366CC"));
    QVERIFY(!tinted.isNull());
    verifyTinted(tinted.toImage().convertToFormat(QImage::Format_ARGB32), qRgb(0x33, 0x66, 0xCC));

    const QPixmap plain = Orvane::loadImageWithTintColor(path, QString());
    QCOMPARE(plain.toImage().convertToFormat(QImage::Format_ARGB32), tintSource());
}

void tst_Helpers::loadImageGuessesFormat()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("icon.data"));
    QVERIFY(tintSource().save(path, "PNG"));
    const QPixmap tinted = Orvane::loadImageWithTintColor(path, QStringLiteral("#FF0000"));
    QVERIFY(!tinted.isNull());
    verifyTinted(tinted.toImage().convertToFormat(QImage::Format_ARGB32), qRgb(255, 0, 0));
}

void tst_Helpers::loadImageMissingFile()
{
    QVERIFY(Orvane::loadImageWithTintColor(QStringLiteral("/nonexistent/icon.png"), QStringLiteral("#FF0000")).isNull());
    QVERIFY(Orvane::loadImageWithTintColor(QString(), QStringLiteral("#FF0000")).isNull());
    QVERIFY(Orvane::loadImageWithTintColor(QStringLiteral("/nonexistent/icon.png"), QString()).isNull());
}

// --- paths -----------------------------------------------------------------

void tst_Helpers::smartAppendPath_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("tail");
    QTest::addColumn<QString>("joined");

    QTest::newRow("trailing separator") << "C:/a/" << "b" << "C:/a/b";
    QTest::newRow("parent folds away") << "a" << "../b" << "b";
    QTest::newRow("separator inserted") << "/x/y" << "z" << "/x/y/z";
    QTest::newRow("dot folds away") << "a/./b" << "./c" << "a/b/c";
    QTest::newRow("duplicate separators") << "/a//" << "/b" << "/a/b";
    QTest::newRow("empty base") << "" << "b" << "/b";
    QTest::newRow("empty tail") << "a" << "" << "a";
    QTest::newRow("parents beyond the start stay") << "a" << "../../b" << "../b";
    QTest::newRow("non-ASCII") << QString::fromUtf8("données") << QString::fromUtf8("journal.txt")
                               << QString::fromUtf8("données/journal.txt");
}

void tst_Helpers::smartAppendPath()
{
    QFETCH(QString, base);
    QFETCH(QString, tail);
    QFETCH(QString, joined);
    QCOMPARE(Orvane::smartAppendPath(base, tail), joined);
}

// --- nine-slice drawing ----------------------------------------------------

void tst_Helpers::stretchedPieces_data()
{
    addStretchColumns();
    QTest::addColumn<Pieces>("expected");

    QTest::newRow("zero margins: one scaled pixmap")
        << QSize(30, 30) << QMargins(0, 0, 0, 0) << QSize(100, 50)
        << Pieces{{QRect(0, 0, 30, 30), QRect(0, 0, 100, 50)}};
    QTest::newRow("too narrow: one scaled pixmap")
        << QSize(30, 30) << QMargins(10, 10, 10, 10) << QSize(15, 40)
        << Pieces{{QRect(0, 0, 30, 30), QRect(0, 0, 15, 40)}};
    QTest::newRow("too low: one scaled pixmap")
        << QSize(30, 30) << QMargins(10, 10, 10, 10) << QSize(40, 15)
        << Pieces{{QRect(0, 0, 30, 30), QRect(0, 0, 40, 15)}};
    // Grids give each column's x and width and each row's y and height, in
    // the pixmap and in the target.
    QTest::newRow("nine pieces in order")
        << QSize(30, 30) << QMargins(10, 10, 10, 10) << QSize(100, 50)
        << gridPieces({{0, 10}, {10, 10}, {20, 10}}, {{0, 10}, {10, 10}, {20, 10}},
                      {{0, 10}, {10, 80}, {90, 10}}, {{0, 10}, {10, 30}, {40, 10}});
    QTest::newRow("source middle clamped to one pixel")
        << QSize(20, 20) << QMargins(10, 10, 10, 10) << QSize(60, 40)
        << gridPieces({{0, 10}, {10, 1}, {10, 10}}, {{0, 10}, {10, 1}, {10, 10}},
                      {{0, 10}, {10, 40}, {50, 10}}, {{0, 10}, {10, 20}, {30, 10}});
    QTest::newRow("left and right margins only")
        << QSize(30, 30) << QMargins(8, 0, 8, 0) << QSize(100, 50)
        << Pieces{{QRect(0, 0, 8, 30), QRect(0, 0, 8, 50)},
                  {QRect(8, 0, 14, 30), QRect(8, 0, 84, 50)},
                  {QRect(22, 0, 8, 30), QRect(92, 0, 8, 50)}};
    QTest::newRow("top margin only")
        << QSize(30, 30) << QMargins(0, 6, 0, 0) << QSize(100, 50)
        << Pieces{{QRect(0, 0, 30, 6), QRect(0, 0, 100, 6)},
                  {QRect(0, 6, 30, 24), QRect(0, 6, 100, 44)}};
    QTest::newRow("uneven margins")
        << QSize(30, 20) << QMargins(4, 3, 6, 5) << QSize(50, 40)
        << gridPieces({{0, 4}, {4, 20}, {24, 6}}, {{0, 3}, {3, 12}, {15, 5}},
                      {{0, 4}, {4, 40}, {44, 6}}, {{0, 3}, {3, 32}, {35, 5}});
    QTest::newRow("negative margin counts as none")
        << QSize(30, 30) << QMargins(-5, 0, 8, 0) << QSize(100, 50)
        << Pieces{{QRect(0, 0, 22, 30), QRect(0, 0, 92, 50)},
                  {QRect(22, 0, 8, 30), QRect(92, 0, 8, 50)}};
    QTest::newRow("empty size draws nothing")
        << QSize(30, 30) << QMargins(0, 0, 0, 0) << QSize(0, 50) << Pieces{};
    QTest::newRow("negative size draws nothing")
        << QSize(30, 30) << QMargins(10, 10, 10, 10) << QSize(-100, -50) << Pieces{};
}

void tst_Helpers::stretchedPieces()
{
    QFETCH(QSize, pixmapSize);
    QFETCH(QMargins, margins);
    QFETCH(QSize, size);
    QFETCH(Pieces, expected);

    QPixmap pixmap(pixmapSize);
    pixmap.fill(Qt::red);
    RecordingDevice device;
    QPainter painter(&device);
    Orvane::drawStretchedImage(painter, size, pixmap, margins);
    painter.end();
    QCOMPARE(device.pieces(), expected);
}

void tst_Helpers::stretchedPixels_data()
{
    addStretchColumns();

    QTest::newRow("30x30 by 10 into 100x50") << QSize(30, 30) << QMargins(10, 10, 10, 10) << QSize(100, 50);
    QTest::newRow("uneven margins") << QSize(30, 20) << QMargins(4, 3, 6, 5) << QSize(64, 33);
    QTest::newRow("left and right only") << QSize(30, 30) << QMargins(8, 0, 8, 0) << QSize(100, 50);
    QTest::newRow("top and bottom only") << QSize(30, 30) << QMargins(0, 7, 0, 9) << QSize(45, 120);
    QTest::newRow("middle shrinks") << QSize(30, 30) << QMargins(10, 10, 10, 10) << QSize(25, 23);
}

// Checks every target pixel against its piece: corners copy the source pixel
// for pixel, the top and bottom edges keep the rows and stretch the columns,
// the left and right edges keep the columns and stretch the rows, the centre
// stretches both, and each stretched piece shows every source column or row
// of its middle in order when it grows.
void tst_Helpers::stretchedPixels()
{
    QFETCH(QSize, pixmapSize);
    QFETCH(QMargins, margins);
    QFETCH(QSize, size);

    const int pw = pixmapSize.width(), ph = pixmapSize.height();
    const int W = size.width(), H = size.height();
    const int L = margins.left(), T = margins.top(), R = margins.right(), B = margins.bottom();
    const int sw = pw - L - R, sh = ph - T - B;
    const int dw = W - L - R, dh = H - T - B;

    const QImage image = paintStretched(size, codedPixmap(pw, ph, margins), margins);
    image.save(QDir::temp().filePath(QStringLiteral("tst_helpers_%1.png")).arg(QString::fromLatin1(QTest::currentDataTag()).replace(' ', '_')));

    for (int ty = 0; ty < H; ++ty) {
        std::set<int> columns;
        int previous = -1;
        for (int tx = 0; tx < W; ++tx) {
            const QRgb p = image.pixel(tx, ty);
            QCOMPARE(qAlpha(p), 255);
            const int sx = qRed(p) / 8, sy = qGreen(p) / 8;
            const int region = regionOf(tx, ty, W, H, margins);
            QCOMPARE(qBlue(p), blueOfRegion(region));
            const int col = region % 3, row = region / 3;

            if (col == 0)
                QCOMPARE(sx, tx);
            else if (col == 2)
                QCOMPARE(sx, tx - (W - R) + (pw - R));
            else {
                QVERIFY(sx >= L && sx < L + sw);
                QVERIFY(sx >= previous); // in order
                previous = sx;
                columns.insert(sx);
            }
            if (row == 0)
                QCOMPARE(sy, ty);
            else if (row == 2)
                QCOMPARE(sy, ty - (H - B) + (ph - B));
            else
                QVERIFY(sy >= T && sy < T + sh);
        }
        if (dw >= sw)
            QCOMPARE(int(columns.size()), sw);
    }
    for (int tx = 0; tx < W; ++tx) {
        std::set<int> rows;
        for (int ty = T; ty < H - B; ++ty)
            rows.insert(qGreen(image.pixel(tx, ty)) / 8);
        if (dh >= sh && dh > 0)
            QCOMPARE(int(rows.size()), sh);
    }
}

void tst_Helpers::stretchedClampsSourceMiddle()
{
    // With a 20 by 20 pixmap and 10-pixel margins, the source middle is the
    // single pixel (10, 10), not nothing.
    const QMargins margins(10, 10, 10, 10);
    const QPixmap pixmap = codedPixmap(20, 20, margins);
    const QRgb middle = pixmap.toImage().pixel(10, 10);
    const QImage image = paintStretched(QSize(60, 40), pixmap, margins);
    image.save(QDir::temp().filePath(QStringLiteral("tst_helpers_clamped.png")));

    for (int y = 10; y < 30; ++y)
        for (int x = 10; x < 50; ++x)
            QCOMPARE(image.pixel(x, y), middle);
    // The top edge stretches source column 10, the left edge source row 10.
    for (int x = 10; x < 50; ++x)
        QCOMPARE(image.pixel(x, 3), pixmap.toImage().pixel(10, 3));
    for (int y = 10; y < 30; ++y)
        QCOMPARE(image.pixel(4, y), pixmap.toImage().pixel(4, 10));
    // Corners unscaled.
    QCOMPARE(image.pixel(0, 0), pixmap.toImage().pixel(0, 0));
    QCOMPARE(image.pixel(59, 39), pixmap.toImage().pixel(19, 19));
    QCOMPARE(image.pixel(50, 30), pixmap.toImage().pixel(10, 10));
}

void tst_Helpers::stretchedFallsBackToScaled_data()
{
    QTest::addColumn<QMargins>("margins");
    QTest::addColumn<QSize>("size");

    QTest::newRow("zero margins") << QMargins(0, 0, 0, 0) << QSize(100, 50);
    QTest::newRow("15 is less than 20") << QMargins(10, 10, 10, 10) << QSize(15, 40);
    QTest::newRow("too low") << QMargins(10, 10, 10, 10) << QSize(40, 15);
    QTest::newRow("one pixel short") << QMargins(10, 10, 10, 10) << QSize(19, 60);
}

void tst_Helpers::stretchedFallsBackToScaled()
{
    QFETCH(QMargins, margins);
    QFETCH(QSize, size);

    const QPixmap pixmap = codedPixmap(30, 30, QMargins(10, 10, 10, 10));
    const QImage image = paintStretched(size, pixmap, margins);
    QCOMPARE(image, paintScaled(size, pixmap));
    // Scaled, not sliced: the far corner comes from the pixmap's bottom-right
    // corner and every pixel is painted.
    QCOMPARE(qBlue(image.pixel(size.width() - 1, size.height() - 1)), blueOfRegion(8));
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            QCOMPARE(qAlpha(image.pixel(x, y)), 255);
}

void tst_Helpers::stretchedExactFit()
{
    // A target exactly as large as the margins holds the four corners only.
    const QMargins margins(10, 10, 10, 10);
    const QPixmap pixmap = codedPixmap(30, 30, margins);
    const QImage source = pixmap.toImage();
    const QImage image = paintStretched(QSize(20, 20), pixmap, margins);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x) {
            QCOMPARE(image.pixel(x, y), source.pixel(x, y));
            QCOMPARE(image.pixel(x + 10, y), source.pixel(x + 20, y));
            QCOMPARE(image.pixel(x, y + 10), source.pixel(x, y + 20));
            QCOMPARE(image.pixel(x + 10, y + 10), source.pixel(x + 20, y + 20));
        }
    }
}

void tst_Helpers::stretchedBadInput_data()
{
    addStretchColumns();

    QTest::newRow("null pixmap") << QSize(0, 0) << QMargins(10, 10, 10, 10) << QSize(40, 40);
    QTest::newRow("margins larger than pixmap") << QSize(8, 8) << QMargins(20, 20, 20, 20) << QSize(60, 60);
    QTest::newRow("huge margins") << QSize(8, 8) << QMargins(INT_MAX / 4, 1, INT_MAX / 4, 1) << QSize(60, 60);
    QTest::newRow("empty size") << QSize(8, 8) << QMargins(1, 1, 1, 1) << QSize(0, 0);
    QTest::newRow("negative size") << QSize(8, 8) << QMargins(0, 0, 0, 0) << QSize(-5, -5);
    QTest::newRow("negative margins") << QSize(8, 8) << QMargins(-3, -3, -3, -3) << QSize(20, 20);
}

void tst_Helpers::stretchedBadInput()
{
    QFETCH(QSize, pixmapSize);
    QFETCH(QMargins, margins);
    QFETCH(QSize, size);

    QPixmap pixmap;
    if (!pixmapSize.isEmpty()) {
        pixmap = QPixmap(pixmapSize);
        pixmap.fill(Qt::green);
    }
    QImage image(64, 64, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    Orvane::drawStretchedImage(painter, size, pixmap, margins);
    painter.end();

    // Nothing is painted outside the target rectangle.
    const QRect target = QRect(QPoint(0, 0), size).normalized() & image.rect();
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            if (!target.contains(x, y))
                QCOMPARE(qAlpha(image.pixel(x, y)), 0);
    if (size.width() <= 0 || size.height() <= 0 || pixmap.isNull())
        QCOMPARE(image, solidImage(64, 64, qRgba(0, 0, 0, 0)));
}

QTEST_MAIN(tst_Helpers)
#include "tst_helpers.moc"
