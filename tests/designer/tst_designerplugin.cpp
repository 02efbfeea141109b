// The Designer plugin as Designer meets it: loaded from its file by
// QPluginLoader, asked for its widgets, each widget built through its
// interface.

#include <Orvane/buttonstyles.h>
#include <Orvane/elidedlabel.h>
#include <Orvane/imagebutton.h>
#include <Orvane/rotationlabel.h>

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <QApplication>
#include <QLabel>
#include <QPluginLoader>
#include <QXmlStreamReader>
#include <QtTest>

#include <memory>

namespace {

// What the XML a widget drops into a form says.
struct DroppedWidget
{
    QString rootElement;
    QString className;
    QString objectName;
    QSize size;
    QMap<QString, QString> strings; // string properties by name
};

DroppedWidget parseDomXml(const QString &xml)
{
    DroppedWidget d;
    QXmlStreamReader reader(xml);
    QString property;
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        const auto name = reader.name();
        if (d.rootElement.isEmpty()) {
            d.rootElement = name.toString();
        } else if (name == QLatin1String("widget")) {
            d.className = reader.attributes().value(QLatin1String("class")).toString();
            d.objectName = reader.attributes().value(QLatin1String("name")).toString();
        } else if (name == QLatin1String("property")) {
            property = reader.attributes().value(QLatin1String("name")).toString();
        } else if (name == QLatin1String("width")) {
            d.size.setWidth(reader.readElementText().toInt());
        } else if (name == QLatin1String("height")) {
            d.size.setHeight(reader.readElementText().toInt());
        } else if (name == QLatin1String("string")) {
            d.strings.insert(property, reader.readElementText());
        }
    }
    if (reader.hasError())
        d.rootElement = QStringLiteral("error: ") + reader.errorString();
    return d;
}

} // namespace

class tst_DesignerPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void metaData();
    void widgetBox_data();
    void widgetBox();
    void domXml_data();
    void domXml();
    void imageButton();
    void imageButtonFollowsTextProperty();
    void elidedLabel();
    void elidedLabelKeepsTextProperty();
    void rotationLabel();

private:
    QDesignerCustomWidgetInterface *widget(const QString &name) const;

    QPluginLoader m_loader{QStringLiteral(ORVANE_DESIGNER_PLUGIN_FILE)};
    QDesignerCustomWidgetCollectionInterface *m_collection = nullptr;
};

void tst_DesignerPlugin::initTestCase()
{
    QVERIFY2(m_loader.load(), qPrintable(m_loader.errorString()));
    m_collection = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(m_loader.instance());
    QVERIFY(m_collection);
}

QDesignerCustomWidgetInterface *tst_DesignerPlugin::widget(const QString &name) const
{
    for (QDesignerCustomWidgetInterface *w : m_collection->customWidgets()) {
        if (w->name() == name)
            return w;
    }
    return nullptr;
}

void tst_DesignerPlugin::metaData()
{
    QCOMPARE(m_loader.metaData().value(QStringLiteral("IID")).toString(),
             QStringLiteral("org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface"));
    QStringList names;
    for (QDesignerCustomWidgetInterface *w : m_collection->customWidgets())
        names << w->name();
    QCOMPARE(names, QStringList({QStringLiteral("Orvane::ImageButton"), QStringLiteral("Orvane::ElidedLabel"),
                                 QStringLiteral("Orvane::RotationLabel")}));
}

void tst_DesignerPlugin::widgetBox_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("includeFile");
    QTest::newRow("ImageButton") << QStringLiteral("Orvane::ImageButton") << QStringLiteral("<Orvane/imagebutton.h>");
    QTest::newRow("ElidedLabel") << QStringLiteral("Orvane::ElidedLabel") << QStringLiteral("<Orvane/elidedlabel.h>");
    QTest::newRow("RotationLabel") << QStringLiteral("Orvane::RotationLabel") << QStringLiteral("<Orvane/rotationlabel.h>");
}

void tst_DesignerPlugin::widgetBox()
{
    QFETCH(QString, name);
    QFETCH(QString, includeFile);
    QDesignerCustomWidgetInterface *w = widget(name);
    QVERIFY(w);
    QCOMPARE(w->group(), QStringLiteral("Orvane"));
    QCOMPARE(w->includeFile(), includeFile);
    QVERIFY(!w->isContainer());
    QVERIFY(!w->toolTip().isEmpty());
    QVERIFY(w->whatsThis().size() > w->toolTip().size());
    QVERIFY(!w->isInitialized());
    w->initialize(nullptr);
    QVERIFY(w->isInitialized());

    // The icon has something drawn in it.
    const QIcon icon = w->icon();
    QVERIFY(!icon.isNull());
    const QImage image = icon.pixmap(QSize(64, 64)).toImage().convertToFormat(QImage::Format_ARGB32);
    QVERIFY(!image.isNull());
    int opaque = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            opaque += qAlpha(image.pixel(x, y)) > 128;
    QVERIFY2(opaque > 50, qPrintable(QString::number(opaque)));
}

void tst_DesignerPlugin::domXml_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("text");
    QTest::newRow("ImageButton") << QStringLiteral("Orvane::ImageButton") << QStringLiteral("imageButton")
                                 << Orvane::makeBtnStyle_Default()->minimumSize << QStringLiteral("Button");
    QTest::newRow("ElidedLabel") << QStringLiteral("Orvane::ElidedLabel") << QStringLiteral("elidedLabel") << QSize(120, 20) << QStringLiteral("Elided text");
    QTest::newRow("RotationLabel") << QStringLiteral("Orvane::RotationLabel") << QStringLiteral("rotationLabel") << QSize(32, 32) << QString();
}

void tst_DesignerPlugin::domXml()
{
    QFETCH(QString, name);
    QFETCH(QString, objectName);
    QFETCH(QSize, size);
    QFETCH(QString, text);
    QDesignerCustomWidgetInterface *w = widget(name);
    QVERIFY(w);
    const DroppedWidget d = parseDomXml(w->domXml());
    QCOMPARE(d.rootElement, QStringLiteral("ui"));
    QCOMPARE(d.className, name);
    QCOMPARE(d.objectName, objectName);
    QCOMPARE(d.size, size);
    QCOMPARE(d.strings.value(QStringLiteral("text")), text);
}

void tst_DesignerPlugin::imageButton()
{
    QDesignerCustomWidgetInterface *w = widget(QStringLiteral("Orvane::ImageButton"));
    QVERIFY(w);
    QWidget parent;
    QWidget *created = w->createWidget(&parent);
    QVERIFY(created);
    QCOMPARE(created->parentWidget(), &parent);
    QCOMPARE(created->metaObject()->className(), "Orvane::ImageButton");
    auto *button = qobject_cast<Orvane::ImageButton *>(created);
    QVERIFY(button);
    // The default stock style: its minimum size, and drawn as a button on
    // that style draws, in a shown window as in Designer's form.
    QCOMPARE(button->minimumSize(), Orvane::makeBtnStyle_Default()->minimumSize);
    auto *reference = new Orvane::ImageButton(Orvane::makeBtnStyle_Default(), &parent);
    // Far enough apart that neither shadow reaches the other's picture.
    button->setGeometry(40, 40, 110, 30);
    reference->setGeometry(240, 40, 110, 30);
    parent.resize(390, 110);
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));
    const QImage drawn = parent.grab(button->geometry().adjusted(-10, -10, 10, 10)).toImage();
    const QImage expected = parent.grab(reference->geometry().adjusted(-10, -10, 10, 10)).toImage();
    QCOMPARE(drawn, expected);
    const QRgb middle = drawn.pixel(drawn.width() / 2, drawn.height() / 2);
    QVERIFY(qAlpha(middle) == 255);
}

void tst_DesignerPlugin::imageButtonFollowsTextProperty()
{
    QDesignerCustomWidgetInterface *w = widget(QStringLiteral("Orvane::ImageButton"));
    QVERIFY(w);
    QWidget parent;
    QWidget *created = w->createWidget(&parent);
    created->setGeometry(0, 0, 200, 30);
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));
    // Designer writes properties through the meta-object.
    QVERIFY(created->setProperty("text", QStringLiteral("Save & Exit")));
    parent.grab();
    bool shown = false;
    for (QLabel *l : created->findChildren<QLabel *>())
        shown = shown || (!l->isHidden() && l->text() == QStringLiteral("Save & Exit"));
    QVERIFY(shown);
    QCOMPARE(created->property("text").toString(), QStringLiteral("Save & Exit"));
}

void tst_DesignerPlugin::elidedLabel()
{
    QDesignerCustomWidgetInterface *w = widget(QStringLiteral("Orvane::ElidedLabel"));
    QVERIFY(w);
    QWidget parent;
    QWidget *created = w->createWidget(&parent);
    QVERIFY(created);
    QCOMPARE(created->parentWidget(), &parent);
    QCOMPARE(created->metaObject()->className(), "Orvane::ElidedLabel");
    auto *label = qobject_cast<Orvane::ElidedLabel *>(created);
    QVERIFY(label);
    label->resize(60, 20);
    const QString full = QStringLiteral("A text far too long for sixty pixels");
    label->setText(full);
    QCOMPARE(label->text(), full);
    QVERIFY(static_cast<QLabel *>(label)->text().endsWith(QChar(0x2026)));
}

void tst_DesignerPlugin::elidedLabelKeepsTextProperty()
{
    QDesignerCustomWidgetInterface *w = widget(QStringLiteral("Orvane::ElidedLabel"));
    QVERIFY(w);
    QWidget parent;
    QWidget *created = w->createWidget(&parent);
    created->setGeometry(0, 0, 60, 20);
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));
    // Designer writes the text through the meta-object; a resize must not
    // lose or shorten it, or the form would save the shortened text.
    const QString full = QStringLiteral("A text far too long for sixty pixels");
    QVERIFY(created->setProperty("text", full));
    created->resize(50, 20);
    created->resize(300, 20);
    QApplication::processEvents();
    QCOMPARE(created->property("text").toString(), full);
}

void tst_DesignerPlugin::rotationLabel()
{
    QDesignerCustomWidgetInterface *w = widget(QStringLiteral("Orvane::RotationLabel"));
    QVERIFY(w);
    QWidget parent;
    QWidget *created = w->createWidget(&parent);
    QVERIFY(created);
    QCOMPARE(created->parentWidget(), &parent);
    QCOMPARE(created->metaObject()->className(), "Orvane::RotationLabel");
    QVERIFY(qobject_cast<Orvane::RotationLabel *>(created));
}

QTEST_MAIN(tst_DesignerPlugin)
#include "tst_designerplugin.moc"
