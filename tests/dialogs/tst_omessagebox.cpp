#include <Orvane/dialogskinstyle.h>
#include <Orvane/languagepack.h>
#include <Orvane/omessagebox.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QGraphicsDropShadowEffect>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

#include <functional>
#include <memory>

using Orvane::MessageBoxIconType;
using Orvane::OMessageBox;

namespace {

const QString attentionPath = QStringLiteral(":/Orvane/kv_TipsAttention.png");
const QString successPath = QStringLiteral(":/Orvane/kv_TipsSuccess.png");
// The light skins keep #333333 and #666666; the dark skin has light greys
// that are readable on its panel.
QString messageStyle(int skin)
{
    return QStringLiteral("QLabel {     font: 14px; color: %1;}")
        .arg(skin == 2 ? QStringLiteral("#CCCCCC") : QStringLiteral("#333333"));
}

QString checkBoxStyle(int skin)
{
    return QStringLiteral(
               "QCheckBox {\n    spacing: 10px;    font: 12px; color:%1;\n}\n\n"
               "QCheckBox::indicator {\n    width: 16px;\n    height: 16px;\n}\n\n"
               "QCheckBox::indicator:unchecked {\n    image: url(:/Orvane/checkbox_0);\n}\n\n"
               "QCheckBox::indicator:checked {\n    image: url(:/Orvane/checkbox_1);\n}")
        .arg(skin == 2 ? QStringLiteral("#AAAAAA") : QStringLiteral("#666666"));
}
const QColor darkPanel(0x2E, 0x2F, 0x30);
const QColor darkTint(0xE3, 0xE3, 0xE3);

// The children of a box, found the way a host's test would.
struct Parts
{
    QWidget *content = nullptr;
    QLabel *icon = nullptr;
    QLabel *heading = nullptr;
    QLabel *message = nullptr;
    QCheckBox *check = nullptr;
    QList<QPushButton *> buttons; // the button row, left to right
    QPushButton *closeButton = nullptr;
};

Parts partsOf(QWidget *box)
{
    Parts p;
    if (!box)
        return p;
    p.content = box->findChild<QWidget *>(QStringLiteral("content"));
    if (!p.content)
        return p;
    p.icon = p.content->findChild<QLabel *>(QStringLiteral("icon"));
    p.heading = p.content->findChild<QLabel *>(QStringLiteral("heading"));
    p.message = p.content->findChild<QLabel *>(QStringLiteral("message"));
    p.check = p.content->findChild<QCheckBox *>();
    p.buttons = p.content->findChildren<QPushButton *>(QString(), Qt::FindDirectChildrenOnly);
    for (QPushButton *b : box->findChildren<QPushButton *>())
        if (b->parentWidget() && b->parentWidget()->objectName() == QLatin1String("bar"))
            p.closeButton = b;
    return p;
}

// The exec-close helper: once a modal widget is up, runs `action` on it from
// inside the event loop that exec() runs. Gives up after about five seconds.
void whenModal(const std::function<void(QWidget *)> &action, int triesLeft = 500)
{
    QTimer::singleShot(10, [action, triesLeft] {
        if (QWidget *modal = QApplication::activeModalWidget())
            action(modal);
        else if (triesLeft > 0)
            whenModal(action, triesLeft - 1);
    });
}

// How a modal box is ended. Every ending closes it, so exec() returns even
// when the box lacks what the ending looks for.
enum class Ending { Button1, Button2, Button3, BarClose, Escape, CloseCall, Reject };

} // namespace

Q_DECLARE_METATYPE(Ending)

namespace {

void end(QWidget *box, Ending how)
{
    const Parts parts = partsOf(box);
    QWidget *target = nullptr;
    switch (how) {
    case Ending::Button1:
    case Ending::Button2:
    case Ending::Button3:
        target = parts.buttons.value(int(how) - int(Ending::Button1));
        break;
    case Ending::BarClose:
        target = parts.closeButton;
        break;
    case Ending::Escape:
        QTest::keyClick(box, Qt::Key_Escape);
        return;
    case Ending::CloseCall:
        box->close();
        return;
    case Ending::Reject:
        QMetaObject::invokeMethod(box, "reject");
        return;
    }
    if (target)
        QTest::mouseClick(target, Qt::LeftButton);
    else
        box->close();
}

// The ways a user ends a box with one "OK" button, and the result of each.
void addUserEndingRows()
{
    QTest::addColumn<Ending>("how");
    QTest::addColumn<int>("result");
    QTest::newRow("OK") << Ending::Button1 << 1;
    QTest::newRow("bar close button") << Ending::BarClose << 0;
    QTest::newRow("Escape") << Ending::Escape << 0;
}

QImage argb(const QPixmap &pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
}

// The stored picture with every pixel recoloured and its alpha kept.
QImage recoloured(const QString &path, const QColor &colour)
{
    QImage image = QImage(path).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            QColor c = colour;
            c.setAlpha(image.pixelColor(x, y).alpha());
            image.setPixelColor(x, y, c);
        }
    return image;
}

bool near(const QColor &a, const QColor &b, int tolerance = 3)
{
    return qAbs(a.red() - b.red()) <= tolerance && qAbs(a.green() - b.green()) <= tolerance
        && qAbs(a.blue() - b.blue()) <= tolerance && qAbs(a.alpha() - b.alpha()) <= tolerance;
}

// Equal pictures, pixel by pixel; fully transparent pixels match whatever
// colour they carry.
bool samePicture(const QImage &a, const QImage &b, int tolerance = 2)
{
    if (a.isNull() || a.size() != b.size())
        return false;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QColor ca = a.pixelColor(x, y);
            const QColor cb = b.pixelColor(x, y);
            if (ca.alpha() == 0 && cb.alpha() == 0)
                continue;
            // Premultiplied storage rounds faint pixels; judge those by alpha.
            if (ca.alpha() < 64 ? qAbs(ca.alpha() - cb.alpha()) > tolerance : !near(ca, cb, tolerance))
                return false;
        }
    return true;
}

std::unique_ptr<OMessageBox> makeBox(MessageBoxIconType icon, const QStringList &buttons,
                                     const QString &text, const QString &heading = QString(),
                                     int defaultButton = -1, const QString &checkText = QString(),
                                     std::function<void(bool)> onChecked = std::function<void(bool)>())
{
    return std::unique_ptr<OMessageBox>(
        new OMessageBox(icon, buttons, text, heading, defaultButton, checkText, std::move(onChecked)));
}

// A text that measures exactly `width` pixels in `font`, made of letters of
// different widths; null when no mix hits it.
QString textOfWidth(const QFont &font, int width)
{
    const QFontMetrics metrics(font);
    const QString wide = QStringLiteral("W");
    for (const QChar narrow : {QLatin1Char('i'), QLatin1Char('l'), QLatin1Char('.'), QLatin1Char('x')})
        for (int a = 0; a <= 40; ++a)
            for (int b = 0; b <= 80; ++b) {
                const QString text = wide.repeated(a) + QString(b, narrow);
                const int w = metrics.horizontalAdvance(text);
                if (w == width)
                    return text;
                if (w > width)
                    break;
            }
    return QString();
}

bool clearOfTint(const QImage &grab, const QRect &area)
{
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (near(grab.pixelColor(x, y), darkTint, 8))
                return false;
    return true;
}

} // namespace

class tst_OMessageBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void classFlagsAndAttributes();
    void dropShadow();
    void tree();
    void buttonRow();
    void emptyTextsLeaveWidgetsOut();
    void destructorMessage();

    void threeArgumentPopupTips();
    void popupTipsEndings_data();
    void popupTipsEndings();
    void buttonsByPosition_data();
    void buttonsByPosition();
    void noButtons_data();
    void noButtons();
    void buttonSizes_data();
    void buttonSizes();
    void defaultButtonIsNotKeyboardDefault();

    void checkBoxCallback();
    void checkBoxInModalBox();
    void checkBoxPartialIsFalse();
    void checkBoxWithoutCallback();
    void noCheckBoxWithoutText();

    void icons_data();
    void icons();
    void appIconFromImagesFolder();
    void attentionTintedInDarkSkin();
    void attentionAsStoredInLightSkin();
    void skins_data();
    void skins();

    void showTipsReturnsAtOnce_data();
    void showTipsReturnsAtOnce();
    void look_data();
    void look();

    void closeButtonNamedWithoutFocus();
    void returnOnFreshBoxNeverCloses();
    void tabReachesButtonsAndSpaceClicks();

    void okTranslated(); // installs a translator: keep it last
};

void tst_OMessageBox::initTestCase()
{
    QCOMPARE(Orvane::currentDialogSkin(), 2);
}

void tst_OMessageBox::cleanup()
{
    Orvane::setCurrentDialogSkin(2);
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_OMessageBox::classFlagsAndAttributes()
{
    auto box = makeBox(Orvane::Success, {QStringLiteral("OK")}, QStringLiteral("Saved."));
    QCOMPARE(box->metaObject()->className(), "Orvane::OMessageBox");
    QVERIFY(qobject_cast<Orvane::BarDialog *>(box.get()));
    QCOMPARE(box->windowFlags(), Qt::Dialog | Qt::FramelessWindowHint | Qt::Tool);
    QVERIFY(box->testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(box->testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(box->minimumSize(), QSize(480, 150));
    QVERIFY(!box->parent());
    QVERIFY(box->windowTitle().isEmpty());

    // The flags passed are ignored, as by every bar dialog.
    std::unique_ptr<OMessageBox> other(new OMessageBox(Orvane::Attention, {}, QStringLiteral("x"), QString(), -1,
                                                       QString(), nullptr, nullptr,
                                                       Qt::Window | Qt::WindowStaysOnTopHint));
    QCOMPARE(other->windowFlags(), Qt::Dialog | Qt::FramelessWindowHint | Qt::Tool);
}

void tst_OMessageBox::dropShadow()
{
    auto box = makeBox(Orvane::Success, {QStringLiteral("OK")}, QStringLiteral("Saved."));
    auto *shadow = qobject_cast<QGraphicsDropShadowEffect *>(box->graphicsEffect());
    QVERIFY(shadow);
    QCOMPARE(shadow->parent(), box.get());
    QCOMPARE(shadow->offset(), QPointF(0, 0));
    QCOMPARE(shadow->blurRadius(), 30.0);
    QCOMPARE(shadow->color(), QColor(92, 93, 102, 51));
}

void tst_OMessageBox::tree()
{
    bool ticked = false;
    auto box = makeBox(Orvane::Attention, {QStringLiteral("A"), QStringLiteral("B")}, QStringLiteral("Body"),
                       QStringLiteral("Head"), -1, QStringLiteral("Again"), [&ticked](bool on) { ticked = on; });
    const Parts parts = partsOf(box.get());
    QCOMPARE(parts.content, box->contentWidget());

    auto *root = qobject_cast<QVBoxLayout *>(parts.content->layout());
    QVERIFY(root);
    QCOMPARE(root->contentsMargins(), QMargins(25, 25, 25, 20));
    QCOMPARE(root->spacing(), 0);
    QCOMPARE(root->count(), 3);

    auto *topRow = qobject_cast<QHBoxLayout *>(root->itemAt(0)->layout());
    QVERIFY(topRow);
    QCOMPARE(topRow->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(topRow->spacing(), 0);
    QCOMPARE(topRow->count(), 3);
    QCOMPARE(topRow->itemAt(0)->widget(), parts.icon);
    QCOMPARE(topRow->itemAt(0)->alignment(), Qt::AlignTop);
    QVERIFY(topRow->itemAt(1)->spacerItem());
    QCOMPARE(topRow->itemAt(1)->spacerItem()->sizeHint().width(), 25);

    QCOMPARE(parts.icon->minimumSize(), QSize(48, 48));
    QCOMPARE(parts.icon->maximumSize(), QSize(48, 48));
    QVERIFY(parts.icon->hasScaledContents());

    auto *column = qobject_cast<QVBoxLayout *>(topRow->itemAt(2)->layout());
    QVERIFY(column);
    QCOMPARE(column->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(column->spacing(), 20);
    QCOMPARE(column->count(), 3);
    QCOMPARE(column->itemAt(0)->widget(), parts.heading);
    QCOMPARE(column->itemAt(1)->widget(), parts.message);
    auto *checkRow = qobject_cast<QHBoxLayout *>(column->itemAt(2)->layout());
    QVERIFY(checkRow);
    QCOMPARE(checkRow->count(), 1);
    QCOMPARE(checkRow->itemAt(0)->widget(), parts.check);

    QCOMPARE(parts.heading->text(), QStringLiteral("Head"));
    QVERIFY(parts.heading->wordWrap());
    QCOMPARE(parts.heading->styleSheet(), Orvane::dialogSkinStyle(2).headingStyle);
    QCOMPARE(parts.message->text(), QStringLiteral("Body\n"));
    QVERIFY(parts.message->wordWrap());
    QCOMPARE(parts.message->styleSheet(), messageStyle(2));
    QCOMPARE(parts.check->text(), QStringLiteral("Again"));
    QCOMPARE(parts.check->styleSheet(), checkBoxStyle(2));
    QVERIFY(!parts.check->isChecked());

    QSpacerItem *gap = root->itemAt(1)->spacerItem();
    QVERIFY(gap);
    QCOMPARE(gap->sizeHint().height(), 25);
    QVERIFY(!ticked);
}

void tst_OMessageBox::buttonRow()
{
    auto box = makeBox(Orvane::Success, {QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")},
                       QStringLiteral("Body"));
    const Parts parts = partsOf(box.get());
    auto *row = qobject_cast<QHBoxLayout *>(parts.content->layout()->itemAt(2)->layout());
    QVERIFY(row);
    QCOMPARE(row->spacing(), 10);
    QCOMPARE(row->count(), 4);
    // The stretch first, so the buttons sit at the right, in list order.
    QVERIFY(row->itemAt(0)->spacerItem());
    QCOMPARE(parts.buttons.size(), 3);
    const QStringList texts = {QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")};
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(row->itemAt(i + 1)->widget(), parts.buttons.at(i));
        QCOMPARE(parts.buttons.at(i)->text(), texts.at(i));
    }

    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box.get()));
    const QRect last = parts.buttons.at(2)->geometry();
    QVERIFY(parts.content->width() - last.right() <= 25 + 2);
    QVERIFY(parts.buttons.at(0)->geometry().right() < parts.buttons.at(1)->geometry().left());
    QCOMPARE(parts.buttons.at(1)->geometry().left() - parts.buttons.at(0)->geometry().right() - 1, 10);
    box->hide();
}

void tst_OMessageBox::emptyTextsLeaveWidgetsOut()
{
    auto box = makeBox(Orvane::Success, {QStringLiteral("OK")}, QString(), QString(), -1, QString(),
                       [](bool) {});
    const Parts parts = partsOf(box.get());
    QVERIFY(!parts.heading);
    QVERIFY(!parts.message);
    QVERIFY(!parts.check);
    QVERIFY(parts.icon);
    auto *topRow = qobject_cast<QHBoxLayout *>(parts.content->layout()->itemAt(0)->layout());
    QCOMPARE(qobject_cast<QVBoxLayout *>(topRow->itemAt(2)->layout())->count(), 0);
    QCOMPARE(parts.content->findChildren<QLabel *>().size(), 1);
}

void tst_OMessageBox::destructorMessage()
{
    auto *box = new OMessageBox(Orvane::Success, {QStringLiteral("OK")}, QStringLiteral("Bye"));
    QTest::ignoreMessage(QtDebugMsg, "~OMessageBox");
    delete box;
}

void tst_OMessageBox::threeArgumentPopupTips()
{
    QString className;
    bool headingShown = true;
    QString message;
    QImage picture;
    QStringList buttonTexts;
    QString buttonStyle;
    QSize buttonSize;
    bool modal = false;
    QPointer<QWidget> seen;
    whenModal([&](QWidget *box) {
        const Parts parts = partsOf(box);
        seen = box;
        className = QString::fromLatin1(box->metaObject()->className());
        modal = box->isModal();
        headingShown = parts.heading != nullptr;
        message = parts.message ? parts.message->text() : QString();
        picture = parts.icon ? argb(parts.icon->pixmap(Qt::ReturnByValue)) : QImage();
        for (QPushButton *b : parts.buttons)
            buttonTexts << b->text();
        if (!parts.buttons.isEmpty()) {
            buttonStyle = parts.buttons.first()->styleSheet();
            buttonSize = parts.buttons.first()->size();
        }
        end(box, Ending::Button1);
    });
    QCOMPARE(OMessageBox::popupTips(Orvane::Success, QStringLiteral("Saved."), QString()), 1);

    QCOMPARE(className, QStringLiteral("Orvane::OMessageBox"));
    QVERIFY(modal);
    QVERIFY(!headingShown);
    QCOMPARE(message, QStringLiteral("Saved.\n"));
    QVERIFY(samePicture(picture, recoloured(successPath, darkTint)));
    QCOMPARE(buttonTexts, QStringList{QStringLiteral("OK")});
    QCOMPARE(buttonStyle, Orvane::dialogSkinStyle(2).primaryButtonStyle);
    QCOMPARE(buttonSize, QSize(100, 30));
    // Deleted on close, before exec() returned.
    QVERIFY(seen.isNull());
}

void tst_OMessageBox::popupTipsEndings_data()
{
    addUserEndingRows();
    QTest::newRow("close()") << Ending::CloseCall << 0;
    QTest::newRow("reject()") << Ending::Reject << 0;
}

void tst_OMessageBox::popupTipsEndings()
{
    QFETCH(Ending, how);
    QFETCH(int, result);
    QPointer<QWidget> seen;
    whenModal([&](QWidget *box) {
        seen = box;
        end(box, how);
    });
    QCOMPARE(OMessageBox::popupTips(Orvane::Attention, QStringLiteral("Careful."), QStringLiteral("Heads up")),
             result);
    QVERIFY(seen.isNull());
}

void tst_OMessageBox::buttonsByPosition_data()
{
    QTest::addColumn<QStringList>("buttons");
    QTest::addColumn<int>("defaultButton");
    QTest::addColumn<QString>("highlighted"); // one digit per button, 1 = primary
    QTest::addColumn<Ending>("how");
    QTest::addColumn<int>("result");
    const QStringList three = {QStringLiteral("Cancel"), QStringLiteral("Later"), QStringLiteral("Update")};
    QTest::newRow("three, -1, click 2nd") << three << -1 << "001" << Ending::Button2 << 2;
    QTest::newRow("three, 1, click 2nd") << three << 1 << "100" << Ending::Button2 << 2;
    QTest::newRow("three, 1, click 1st") << three << 1 << "100" << Ending::Button1 << 1;
    QTest::newRow("three, 2, click 3rd") << three << 2 << "010" << Ending::Button3 << 3;
    QTest::newRow("three, 3, bar close") << three << 3 << "001" << Ending::BarClose << 0;
    QTest::newRow("three, 0 highlights none") << three << 0 << "000" << Ending::Button3 << 3;
    QTest::newRow("three, 4 highlights none") << three << 4 << "000" << Ending::Button1 << 1;
    QTest::newRow("three, -2 highlights none") << three << -2 << "000" << Ending::Escape << 0;
    QTest::newRow("one, -1") << QStringList{QStringLiteral("Fine")} << -1 << "1" << Ending::Button1 << 1;
    QTest::newRow("two same texts, -1") << QStringList{QStringLiteral("Go"), QStringLiteral("Go")} << -1 << "01"
                                        << Ending::Button2 << 2;
}

void tst_OMessageBox::buttonsByPosition()
{
    QFETCH(QStringList, buttons);
    QFETCH(int, defaultButton);
    QFETCH(QString, highlighted);
    QFETCH(Ending, how);
    QFETCH(int, result);
    const Orvane::DialogSkinStyle style = Orvane::dialogSkinStyle(2);

    QString seenHighlight;
    QStringList seenTexts;
    QSignalSpy *finished = nullptr;
    whenModal([&](QWidget *box) {
        finished = new QSignalSpy(box, SIGNAL(finished(int)));
        for (QPushButton *b : partsOf(box).buttons) {
            seenTexts << b->text();
            seenHighlight += b->styleSheet() == style.primaryButtonStyle ? QLatin1Char('1')
                : b->styleSheet() == style.secondaryButtonStyle          ? QLatin1Char('0')
                                                                          : QLatin1Char('?');
        }
        end(box, how);
    });
    const int got = OMessageBox::popupTips(Orvane::Attention, buttons, QStringLiteral("Update now?"),
                                           QStringLiteral("Update"), defaultButton, QString(), nullptr);
    std::unique_ptr<QSignalSpy> spy(finished);
    QCOMPARE(got, result);
    QCOMPARE(seenTexts, buttons);
    QCOMPARE(seenHighlight, highlighted);
    QVERIFY(spy);
    QCOMPARE(spy->count(), 1);
    QCOMPARE(spy->first().first().toInt(), result);
}

void tst_OMessageBox::noButtons_data()
{
    QTest::addColumn<Ending>("how");
    QTest::newRow("bar close button") << Ending::BarClose;
    QTest::newRow("Escape") << Ending::Escape;
}

void tst_OMessageBox::noButtons()
{
    QFETCH(Ending, how);
    int buttonCount = -1;
    whenModal([&](QWidget *box) {
        buttonCount = partsOf(box).buttons.size();
        end(box, how);
    });
    QCOMPARE(OMessageBox::popupTips(Orvane::Warning, QStringList(), QStringLiteral("Nothing to choose."), QString(),
                                    -1, QString(), nullptr),
             0);
    QCOMPARE(buttonCount, 0);
}

void tst_OMessageBox::buttonSizes_data()
{
    QTest::addColumn<int>("textWidth");
    QTest::addColumn<int>("buttonWidth");
    QTest::newRow("empty") << 0 << 100;
    QTest::newRow("60") << 60 << 100;
    QTest::newRow("99") << 99 << 100;
    QTest::newRow("100") << 100 << 118;
    QTest::newRow("150") << 150 << 168;
    QTest::newRow("230") << 230 << 248;
}

void tst_OMessageBox::buttonSizes()
{
    QFETCH(int, textWidth);
    QFETCH(int, buttonWidth);
    // Measured with the dialog's font, whatever font the button's own style
    // sheet gives its text.
    auto probe = makeBox(Orvane::Success, {}, QStringLiteral("x"));
    const QString text = textWidth == 0 ? QString() : textOfWidth(probe->font(), textWidth);
    QVERIFY2(textWidth == 0 || !text.isEmpty(), "no text of that width in this font");
    QCOMPARE(QFontMetrics(probe->font()).horizontalAdvance(text), textWidth);

    auto box = makeBox(Orvane::Success, {text, QStringLiteral("OK")}, QStringLiteral("Sizes"));
    const Parts parts = partsOf(box.get());
    QCOMPARE(parts.buttons.size(), 2);
    QPushButton *button = parts.buttons.first();
    QCOMPARE(button->minimumSize(), QSize(buttonWidth, 30));
    QCOMPARE(button->maximumSize(), QSize(buttonWidth, 30));
    QCOMPARE(parts.buttons.last()->maximumSize(), QSize(100, 30));
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box.get()));
    QCOMPARE(button->size(), QSize(buttonWidth, 30));
    box->hide();
}

void tst_OMessageBox::defaultButtonIsNotKeyboardDefault()
{
    auto box = makeBox(Orvane::Success, {QStringLiteral("A"), QStringLiteral("B")}, QStringLiteral("x"),
                       QString(), 1);
    for (QPushButton *b : partsOf(box.get()).buttons)
        QVERIFY(!b->isDefault());
}

void tst_OMessageBox::checkBoxCallback()
{
    QList<bool> calls;
    auto box = makeBox(Orvane::Attention, {QStringLiteral("OK")}, QStringLiteral("x"), QString(), -1,
                       QStringLiteral("Don't ask again"), [&calls](bool on) { calls << on; });
    QCheckBox *check = partsOf(box.get()).check;
    QVERIFY(check);
    check->click();
    check->click();
    QCOMPARE(calls, (QList<bool>{true, false}));
}

void tst_OMessageBox::checkBoxInModalBox()
{
    QList<bool> calls;
    whenModal([](QWidget *box) {
        if (QCheckBox *check = partsOf(box).check)
            QTest::mouseClick(check, Qt::LeftButton, Qt::KeyboardModifiers(), QPoint(8, check->height() / 2));
        end(box, Ending::Button1);
    });
    const int result = OMessageBox::popupTips(Orvane::Attention, {QStringLiteral("Keep"), QStringLiteral("Drop")},
                                              QStringLiteral("Drop the file?"), QString(), 2,
                                              QStringLiteral("Remember"), [&calls](bool on) { calls << on; });
    QCOMPARE(result, 1);
    QCOMPARE(calls, QList<bool>{true});
}

void tst_OMessageBox::checkBoxPartialIsFalse()
{
    QList<bool> calls;
    auto box = makeBox(Orvane::Attention, {QStringLiteral("OK")}, QStringLiteral("x"), QString(), -1,
                       QStringLiteral("Some"), [&calls](bool on) { calls << on; });
    QCheckBox *check = partsOf(box.get()).check;
    check->setTristate(true);
    check->setCheckState(Qt::PartiallyChecked);
    check->setCheckState(Qt::Checked);
    check->setCheckState(Qt::Unchecked);
    QCOMPARE(calls, (QList<bool>{false, true, false}));
}

void tst_OMessageBox::checkBoxWithoutCallback()
{
    auto box = makeBox(Orvane::Attention, {QStringLiteral("OK")}, QStringLiteral("x"), QString(), -1,
                       QStringLiteral("Alone"));
    QCheckBox *check = partsOf(box.get()).check;
    QVERIFY(check);
    check->click();
    QVERIFY(check->isChecked());
}

void tst_OMessageBox::noCheckBoxWithoutText()
{
    int calls = 0;
    auto box = makeBox(Orvane::Attention, {QStringLiteral("OK")}, QStringLiteral("x"), QStringLiteral("h"), -1,
                       QString(), [&calls](bool) { ++calls; });
    QVERIFY(!box->findChild<QCheckBox *>());
    auto *topRow = qobject_cast<QHBoxLayout *>(box->contentWidget()->layout()->itemAt(0)->layout());
    QCOMPARE(qobject_cast<QVBoxLayout *>(topRow->itemAt(2)->layout())->count(), 2);
    QCOMPARE(calls, 0);
}

void tst_OMessageBox::icons_data()
{
    QTest::addColumn<int>("icon");
    QTest::addColumn<QString>("path"); // empty: no picture
    QTest::newRow("1 attention") << 1 << attentionPath;
    QTest::newRow("2 warning, the same picture") << 2 << attentionPath;
    QTest::newRow("3 success") << 3 << successPath;
    QTest::newRow("9 none") << 9 << QString();
    QTest::newRow("4 none") << 4 << QString();
    QTest::newRow("-1 none") << -1 << QString();
}

void tst_OMessageBox::icons()
{
    QFETCH(int, icon);
    QFETCH(QString, path);
    for (int skin : {2, 0}) {
        Orvane::setCurrentDialogSkin(skin);
        auto box = makeBox(MessageBoxIconType(icon), {QStringLiteral("OK")}, QStringLiteral("x"));
        QLabel *label = partsOf(box.get()).icon;
        QVERIFY(label);
        QCOMPARE(label->maximumSize(), QSize(48, 48));
        const QPixmap shown = label->pixmap(Qt::ReturnByValue);
        if (path.isEmpty()) {
            QVERIFY(shown.isNull());
            continue;
        }
        const QImage expected = skin == 2 ? recoloured(path, darkTint) : QImage(path).convertToFormat(QImage::Format_ARGB32);
        QVERIFY2(samePicture(argb(shown), expected), qPrintable(QStringLiteral("skin %1").arg(skin)));
    }
}

void tst_OMessageBox::appIconFromImagesFolder()
{
    // This test's executable has a folder of its own, so the picture written
    // here reaches no other test.
    QDir dir(QCoreApplication::applicationDirPath());
    QVERIFY(dir.mkpath(QStringLiteral("images")));
    const QString path = dir.filePath(QStringLiteral("images/AppIcon.png"));
    QImage icon(32, 32, QImage::Format_ARGB32);
    icon.fill(QColor(0x12, 0x80, 0xE0));
    QVERIFY(icon.save(path, "PNG"));

    // Never recoloured, not even in the dark skin.
    QImage shown;
    {
        auto box = makeBox(Orvane::AppIcon, {QStringLiteral("OK")}, QStringLiteral("x"));
        shown = argb(partsOf(box.get()).icon->pixmap(Qt::ReturnByValue));
    }
    QFile::remove(path);
    dir.rmdir(QStringLiteral("images"));
    QVERIFY(samePicture(shown, icon, 0));

    // Without the picture the area stays empty.
    auto box = makeBox(Orvane::AppIcon, {QStringLiteral("OK")}, QStringLiteral("x"));
    QVERIFY(partsOf(box.get()).icon->pixmap(Qt::ReturnByValue).isNull());
}

void tst_OMessageBox::attentionTintedInDarkSkin()
{
    auto box = makeBox(Orvane::Attention, {QStringLiteral("OK")}, QStringLiteral("Careful."));
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box.get()));
    QLabel *label = partsOf(box.get()).icon;
    const QImage grab = argb(box->grab());
    const QImage source = QImage(attentionPath).convertToFormat(QImage::Format_ARGB32);
    const QPoint origin = label->mapTo(box.get(), QPoint(0, 0));
    QCOMPARE(label->size(), QSize(48, 48));

    // Every fully opaque pixel of the picture shows the tint; the panel
    // around the picture stays dark.
    int opaque = 0;
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 48; ++x) {
            const QPoint s(x * source.width() / 48, y * source.height() / 48);
            const bool solid = source.pixelColor(s).alpha() == 255 && source.pixelColor(s.x() + 1, s.y()).alpha() == 255
                && source.pixelColor(s.x(), s.y() + 1).alpha() == 255
                && source.pixelColor(s.x() + 1, s.y() + 1).alpha() == 255;
            if (!solid)
                continue;
            ++opaque;
            const QColor seen = grab.pixelColor(origin + QPoint(x, y));
            QVERIFY2(near(seen, darkTint), qPrintable(seen.name(QColor::HexArgb)));
        }
    QVERIFY(opaque > 48 * 48 / 3);
    QVERIFY(near(grab.pixelColor(origin + QPoint(0, 0)), darkPanel));
    const QPoint belowIcon = origin + QPoint(24, 56);
    QVERIFY(near(grab.pixelColor(belowIcon), darkPanel));
    box->hide();
}

void tst_OMessageBox::attentionAsStoredInLightSkin()
{
    Orvane::setCurrentDialogSkin(0);
    auto box = makeBox(Orvane::Attention, {QStringLiteral("OK")}, QStringLiteral("Careful."));
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box.get()));
    QLabel *label = partsOf(box.get()).icon;
    const QImage grab = argb(box->grab());
    const QPoint origin = label->mapTo(box.get(), QPoint(0, 0));
    // The picture's own colour in its middle, and no trace of the dark tint.
    const QImage source = QImage(attentionPath).convertToFormat(QImage::Format_ARGB32);
    const QColor stored = source.pixelColor(source.width() / 4, source.height() / 2);
    QCOMPARE(stored.alpha(), 255);
    QVERIFY2(near(grab.pixelColor(origin + QPoint(12, 24)), stored, 8),
             qPrintable(grab.pixelColor(origin + QPoint(12, 24)).name()));
    QVERIFY(clearOfTint(grab, QRect(origin, QSize(48, 48))));
    box->hide();
}

void tst_OMessageBox::skins_data()
{
    QTest::addColumn<int>("skin");
    QTest::addColumn<QColor>("panel");
    const QColor white(Qt::white);
    QTest::newRow("2 dark") << 2 << darkPanel;
    QTest::newRow("0 light") << 0 << white;
    QTest::newRow("3") << 3 << white;
    QTest::newRow("4") << 4 << white;
    QTest::newRow("7") << 7 << white;
}

void tst_OMessageBox::skins()
{
    QFETCH(int, skin);
    QFETCH(QColor, panel);
    Orvane::setCurrentDialogSkin(skin);
    const Orvane::DialogSkinStyle style = Orvane::dialogSkinStyle(skin);
    auto box = makeBox(Orvane::Success, {QStringLiteral("No"), QStringLiteral("Yes")}, QStringLiteral("Body"),
                       QStringLiteral("Head"));
    const Parts parts = partsOf(box.get());
    QCOMPARE(parts.content->styleSheet(), style.contentStyle);
    QCOMPARE(parts.heading->styleSheet(), style.headingStyle);
    QCOMPARE(parts.message->styleSheet(), messageStyle(skin));
    QCOMPARE(parts.buttons.at(0)->styleSheet(), style.secondaryButtonStyle);
    QCOMPARE(parts.buttons.at(1)->styleSheet(), style.primaryButtonStyle);

    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box.get()));
    const QImage grab = argb(box->grab());
    const QPoint inPanel = parts.content->mapTo(box.get(), QPoint(10, parts.content->height() - 8));
    QVERIFY2(near(grab.pixelColor(inPanel), panel), qPrintable(grab.pixelColor(inPanel).name(QColor::HexArgb)));
    box->hide();

    // A box built before the change keeps its skin.
    Orvane::setCurrentDialogSkin(skin == 2 ? 0 : 2);
    QCOMPARE(partsOf(box.get()).heading->styleSheet(), style.headingStyle);
}

void tst_OMessageBox::showTipsReturnsAtOnce_data()
{
    addUserEndingRows();
}

void tst_OMessageBox::showTipsReturnsAtOnce()
{
    QFETCH(Ending, how);
    QFETCH(int, result);
    OMessageBox::showTips(Orvane::Success, QStringLiteral("Copied."), QStringLiteral("Done"));
    QVERIFY(!QApplication::activeModalWidget());
    const QWidgetList tops = QApplication::topLevelWidgets();
    QCOMPARE(tops.size(), 1);
    QPointer<OMessageBox> box = qobject_cast<OMessageBox *>(tops.first());
    QVERIFY(box);
    QVERIFY(box->isVisible());
    QVERIFY(!box->isModal());
    QVERIFY(!box->parent());
    const Parts parts = partsOf(box);
    QCOMPARE(parts.heading->text(), QStringLiteral("Done"));
    QCOMPARE(parts.message->text(), QStringLiteral("Copied.\n"));
    QCOMPARE(parts.buttons.size(), 1);
    QCOMPARE(parts.buttons.first()->text(), QStringLiteral("OK"));

    QSignalSpy finished(box.data(), SIGNAL(finished(int)));
    end(box, how);
    QTRY_VERIFY(box.isNull());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), result);
}

void tst_OMessageBox::look_data()
{
    QTest::addColumn<int>("skin");
    QTest::addColumn<bool>("full");
    QTest::addColumn<QColor>("panel");
    QTest::newRow("dark success") << 2 << false << darkPanel;
    QTest::newRow("dark attention") << 2 << true << darkPanel;
    QTest::newRow("light success") << 0 << false << QColor(Qt::white);
    QTest::newRow("light attention") << 0 << true << QColor(Qt::white);
}

void tst_OMessageBox::look()
{
    QFETCH(int, skin);
    QFETCH(bool, full);
    QFETCH(QColor, panel);
    Orvane::setCurrentDialogSkin(skin);
    auto box = full ? makeBox(Orvane::Attention,
                              {QStringLiteral("Cancel"), QStringLiteral("Remind me later"), QStringLiteral("Update")},
                              QStringLiteral("Version 2.4 is ready to install. The application restarts when the "
                                             "update is done."),
                              QStringLiteral("An update is available"), -1, QStringLiteral("Don't ask again"),
                              [](bool) {})
                    : makeBox(Orvane::Success, {QStringLiteral("OK")}, QStringLiteral("The file was saved."));
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box.get()));
    const QImage grab = argb(box->grab());
    const QString file = QStringLiteral("orvane-omessagebox-%1-%2.png")
                             .arg(skin == 2 ? QStringLiteral("dark") : QStringLiteral("light"),
                                  full ? QStringLiteral("attention") : QStringLiteral("success"));
    QVERIFY(grab.save(QDir::temp().filePath(file), "PNG"));

    const Parts parts = partsOf(box.get());
    // The panel below the icon, left of the buttons.
    const QPoint inPanel = parts.content->mapTo(box.get(), QPoint(10, parts.content->height() - 8));
    QVERIFY2(near(grab.pixelColor(inPanel), panel), qPrintable(grab.pixelColor(inPanel).name(QColor::HexArgb)));
    // Every button lies inside the panel, right-aligned with 25 pixels to spare.
    for (QPushButton *b : parts.buttons)
        QVERIFY(parts.content->rect().contains(b->geometry()));
    QCOMPARE(parts.content->width() - 1 - parts.buttons.last()->geometry().right(), 25);
    QCOMPARE(parts.content->height() - 1 - parts.buttons.last()->geometry().bottom(), 20);
    // The highlighted button is filled; the corner pixel of the window is
    // not panel (the band around the panel).
    const QPoint inPrimary = parts.buttons.last()->mapTo(box.get(), QPoint(6, 15));
    QVERIFY(!near(grab.pixelColor(inPrimary), panel, 20));
    QVERIFY(grab.pixelColor(0, 0).alpha() < 255);
    if (full) {
        QVERIFY(parts.check->isVisible());
        QVERIFY(parts.heading->geometry().bottom() < parts.message->geometry().top());
        QVERIFY(parts.message->geometry().bottom() < parts.check->geometry().top());
        QVERIFY(parts.check->geometry().bottom() < parts.buttons.first()->mapTo(parts.content, QPoint(0, 0)).y());
    }
    box->hide();
}

void tst_OMessageBox::closeButtonNamedWithoutFocus()
{
    auto box = makeBox(Orvane::Success, {QStringLiteral("OK")}, QStringLiteral("Saved."));
    const Parts parts = partsOf(box.get());
    QVERIFY(parts.closeButton);
    QCOMPARE(parts.closeButton->focusPolicy(), Qt::NoFocus);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(parts.closeButton);
    QVERIFY(accessible);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Close"));
}

void tst_OMessageBox::returnOnFreshBoxNeverCloses()
{
    // Return goes to the content's first button, never to the bar's close
    // button (which would give 0).
    QString focused;
    whenModal([&focused](QWidget *box) {
        QWidget *focus = QApplication::focusWidget();
        focused = focus ? focus->objectName() + QLatin1Char('|') + QString::fromLatin1(focus->metaObject()->className())
                        : QStringLiteral("none");
        QTest::keyClick(box, Qt::Key_Return);
    });
    const int result = OMessageBox::popupTips(Orvane::Attention, {QStringLiteral("Keep"), QStringLiteral("Delete")},
                                              QStringLiteral("Delete the file?"), QString(), -1, QString(),
                                              std::function<void(bool)>());
    QVERIFY2(result != 0, qPrintable(focused));
    QCOMPARE(result, 1);
}

void tst_OMessageBox::tabReachesButtonsAndSpaceClicks()
{
    QStringList visited;
    whenModal([&visited](QWidget *box) {
        const Parts parts = partsOf(box);
        // The box is modal before its window is activated; the keys go to the
        // focus widget, which exists once it is.
        QVERIFY(QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }));
        // Tab walks the check box and the buttons, never the close button.
        for (int i = 0; i < 8; ++i) {
            QWidget *focus = QApplication::focusWidget();
            if (focus == parts.closeButton)
                visited << QStringLiteral("close");
            else if (auto *b = qobject_cast<QPushButton *>(focus))
                visited << b->text();
            else if (qobject_cast<QCheckBox *>(focus))
                visited << QStringLiteral("check");
            QTest::keyClick(focus ? focus : box, Qt::Key_Tab);
        }
        // Focus the third button by Tab and press Space on it.
        for (int i = 0; i < 8 && QApplication::focusWidget() != parts.buttons.value(2); ++i)
            QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : box, Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : box, Qt::Key_Space);
    });
    const int result = OMessageBox::popupTips(
        Orvane::Attention, {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")},
        QStringLiteral("Choose."), QStringLiteral("Heading"), -1, QStringLiteral("Remember"), [](bool) {});
    QCOMPARE(result, 3);
    QVERIFY(!visited.contains(QStringLiteral("close")));
    for (const QString &name : {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("check")})
        QVERIFY2(visited.contains(name), qPrintable(visited.join(QLatin1Char(','))));
}

void tst_OMessageBox::okTranslated()
{
    Orvane::freshLanguage(QStringLiteral("German"));
    QString text;
    whenModal([&text](QWidget *box) {
        const Parts parts = partsOf(box);
        text = parts.buttons.isEmpty() ? QString() : parts.buttons.first()->text();
        end(box, Ending::Button1);
    });
    QCOMPARE(OMessageBox::popupTips(Orvane::Success, QStringLiteral("Gespeichert."), QString()), 1);
    QCOMPARE(text, QStringLiteral("Okay"));

    OMessageBox::showTips(Orvane::Success, QStringLiteral("Kopiert."));
    QPointer<QWidget> box = QApplication::topLevelWidgets().value(0);
    QVERIFY(box);
    QCOMPARE(partsOf(box).buttons.value(0)->text(), QStringLiteral("Okay"));
    box->close();
    QTRY_VERIFY(box.isNull());

    // Back to the library's own texts.
    Orvane::freshLanguage(QStringLiteral("English"));
    QCOMPARE(OMessageBox::tr("OK"), QStringLiteral("OK"));
}

QTEST_MAIN(tst_OMessageBox)
#include "tst_omessagebox.moc"
