#include <Orvane/orvanewidgets.h>

#include <QApplication>
#include <QFontMetrics>
#include <QImage>
#include <QtTest>

namespace {

// The debug lines written while a test runs, in order; the label's lines are
// kept out of the test log.
QStringList capturedLines;
QtMessageHandler previousHandler = nullptr;

void captureMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtDebugMsg)
        capturedLines.append(message);
    else if (previousHandler)
        previousHandler(type, context, message);
}

const QString longText = QStringLiteral("The quick brown fox jumps over the lazy dog");

QString shownText(const Orvane::ElidedLabel *label)
{
    return label->QLabel::text();
}

QString expectedElided(const Orvane::ElidedLabel *label, const QString &text, Qt::TextElideMode mode, int width)
{
    return QFontMetrics(label->font()).elidedText(text, mode, width, Qt::TextShowMnemonic);
}

int fittingWidth(const Orvane::ElidedLabel *label, const QString &text)
{
    return QFontMetrics(label->font()).horizontalAdvance(text) + 20;
}

// True when every pixel of the label's picture has the colour of its corner:
// no text is drawn.
bool isBlank(Orvane::ElidedLabel *label)
{
    const QImage image = label->grab().toImage().convertToFormat(QImage::Format_ARGB32);
    const QRgb background = image.pixel(0, 0);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != background)
                return false;
    return true;
}

} // namespace

class tst_ElidedLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void className();
    void constructor();
    void constructorMode_data();
    void constructorMode();
    void wideLabelShowsWholeText();
    void narrowingAfterFitKeepsWholeText_data();
    void narrowingAfterFitKeepsWholeText();
    void shortenedTextRecomputedOnEachResize_data();
    void shortenedTextRecomputedOnEachResize();
    void elideNoneNeverShortens();
    void setElideModeClearsText_data();
    void setElideModeClearsText();
    void textAfterSetElideModeUsesNewMode();
    void minimumWidthFromFirstCharacter_data();
    void minimumWidthFromFirstCharacter();
    void minimumWidthKeptWhenTextCleared_data();
    void minimumWidthKeptWhenTextCleared();
    void twoDebugLinesPerUpdate_data();
    void twoDebugLinesPerUpdate();
    void debugLinesOfSetTextAndResize();
    void richTextShownAsWritten();

private:
    Orvane::ElidedLabel *makeLabel(Qt::TextElideMode mode = Qt::ElideRight);
    // A visible label of the given width (0: wide enough) showing `text`.
    Orvane::ElidedLabel *labelWithText(Qt::TextElideMode mode, int width, const QString &text);

    // A visible parent, so that resizing the label delivers resize events.
    QWidget *m_host = nullptr;
};

void tst_ElidedLabel::init()
{
    capturedLines.clear();
    previousHandler = qInstallMessageHandler(captureMessage);
    m_host = new QWidget;
    m_host->resize(900, 80);
    m_host->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_host));
}

void tst_ElidedLabel::cleanup()
{
    delete m_host;
    m_host = nullptr;
    qInstallMessageHandler(previousHandler);
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

// A visible label, so that resizing it delivers resize events.
Orvane::ElidedLabel *tst_ElidedLabel::makeLabel(Qt::TextElideMode mode)
{
    auto *label = new Orvane::ElidedLabel(m_host, mode);
    label->show();
    return label;
}

Orvane::ElidedLabel *tst_ElidedLabel::labelWithText(Qt::TextElideMode mode, int width, const QString &text)
{
    auto *label = makeLabel(mode);
    label->resize(width > 0 ? width : fittingWidth(label, text), 30);
    label->setText(text);
    return label;
}

void tst_ElidedLabel::className()
{
    Orvane::ElidedLabel label(m_host);
    QCOMPARE(label.metaObject()->className(), "Orvane::ElidedLabel");
    QVERIFY(qobject_cast<QLabel *>(&label));
}

void tst_ElidedLabel::constructor()
{
    auto *label = makeLabel();
    QCOMPARE(label->parentWidget(), m_host);
    QVERIFY(label->text().isEmpty());
    QVERIFY(shownText(label).isEmpty());
    QCOMPARE(label->minimumWidth(), 0);
    QCOMPARE(label->textFormat(), Qt::PlainText);
    // The first update without text computes nothing.
    label->update();
    QVERIFY(shownText(label).isEmpty());
    QCOMPARE(label->minimumWidth(), 0);

    // The default mode shortens at the right.
    label->resize(80, 30);
    label->setText(longText);
    QCOMPARE(shownText(label), expectedElided(label, longText, Qt::ElideRight, 80));
    QVERIFY(shownText(label).endsWith(QChar(0x2026)));
    QVERIFY(shownText(label).startsWith(QLatin1Char('T')));
}

void tst_ElidedLabel::constructorMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("left") << int(Qt::ElideLeft);
    QTest::newRow("middle") << int(Qt::ElideMiddle);
    QTest::newRow("right") << int(Qt::ElideRight);
}

void tst_ElidedLabel::constructorMode()
{
    QFETCH(int, mode);
    const auto elideMode = Qt::TextElideMode(mode);
    auto *label = labelWithText(elideMode, 90, longText);
    QCOMPARE(shownText(label), expectedElided(label, longText, elideMode, 90));
    QVERIFY(shownText(label) != longText);
    QCOMPARE(label->text(), longText);
}

void tst_ElidedLabel::wideLabelShowsWholeText()
{
    auto *label = labelWithText(Qt::ElideRight, 0, longText);
    QCOMPARE(shownText(label), longText);
    QCOMPARE(label->text(), longText);
}

void tst_ElidedLabel::narrowingAfterFitKeepsWholeText_data()
{
    constructorMode_data();
}

void tst_ElidedLabel::narrowingAfterFitKeepsWholeText()
{
    QFETCH(int, mode);
    auto *label = labelWithText(Qt::TextElideMode(mode), 0, longText);
    QCOMPARE(shownText(label), longText);

    for (int width : {200, 100, 60}) {
        label->resize(width, 30);
        QCOMPARE(label->width(), width);
        QCOMPARE(shownText(label), longText);
        QCOMPARE(label->text(), longText);
    }
    // A new text is measured again, at the narrow width.
    label->setText(longText + QStringLiteral(" again"));
    QCOMPARE(shownText(label), expectedElided(label, longText + QStringLiteral(" again"), Qt::TextElideMode(mode), 60));
    QVERIFY(shownText(label) != label->text());
}

void tst_ElidedLabel::shortenedTextRecomputedOnEachResize_data()
{
    constructorMode_data();
}

void tst_ElidedLabel::shortenedTextRecomputedOnEachResize()
{
    QFETCH(int, mode);
    const auto elideMode = Qt::TextElideMode(mode);
    auto *label = labelWithText(elideMode, 60, longText);
    QString previous = shownText(label);
    QCOMPARE(previous, expectedElided(label, longText, elideMode, 60));
    QVERIFY(previous != longText);

    for (int width : {100, 150, 220, 120}) {
        label->resize(width, 30);
        const QString shown = shownText(label);
        QCOMPARE(shown, expectedElided(label, longText, elideMode, width));
        QVERIFY(shown != longText);
        QVERIFY(shown != previous);
        previous = shown;
    }

    // The first resize at which the whole text fits shows it whole, and from
    // then on narrowing no longer shortens it.
    label->resize(fittingWidth(label, longText), 30);
    QCOMPARE(shownText(label), longText);
    label->resize(100, 30);
    QCOMPARE(shownText(label), longText);
    QCOMPARE(label->text(), longText);
}

void tst_ElidedLabel::elideNoneNeverShortens()
{
    auto *label = labelWithText(Qt::ElideNone, 60, longText);
    QCOMPARE(shownText(label), longText);
    label->resize(40, 30);
    QCOMPARE(shownText(label), longText);
}

void tst_ElidedLabel::setElideModeClearsText_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("width");
    QTest::newRow("left, text fitted") << int(Qt::ElideLeft) << 0;
    QTest::newRow("left, text shortened") << int(Qt::ElideLeft) << 80;
    QTest::newRow("same mode again") << int(Qt::ElideRight) << 80;
    QTest::newRow("none") << int(Qt::ElideNone) << 80;
}

void tst_ElidedLabel::setElideModeClearsText()
{
    QFETCH(int, mode);
    QFETCH(int, width);
    auto *label = makeLabel();
    label->resize(width > 0 ? width : fittingWidth(label, longText), 30);
    label->setText(longText);
    QVERIFY(!shownText(label).isEmpty());
    QVERIFY(!isBlank(label));

    label->setElideMode(Qt::TextElideMode(mode));
    QVERIFY(label->text().isEmpty());
    QVERIFY(shownText(label).isEmpty());
    QVERIFY(isBlank(label));
    // Resizing does not bring the old text back.
    label->resize(label->width() + 30, 30);
    QVERIFY(label->text().isEmpty());
    QVERIFY(isBlank(label));
}

void tst_ElidedLabel::textAfterSetElideModeUsesNewMode()
{
    auto *label = makeLabel();
    label->resize(90, 30);
    label->setElideMode(Qt::ElideLeft);
    label->setText(longText);
    QCOMPARE(shownText(label), expectedElided(label, longText, Qt::ElideLeft, 90));
    QVERIFY(shownText(label).startsWith(QChar(0x2026)));
    QCOMPARE(label->text(), longText);
}

void tst_ElidedLabel::minimumWidthFromFirstCharacter_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("first");
    QTest::newRow("W alone") << QStringLiteral("W") << QStringLiteral("W");
    QTest::newRow("begins with W") << QStringLiteral("Wide windows") << QStringLiteral("W");
    QTest::newRow("narrow first letter") << QStringLiteral("illegible") << QStringLiteral("i");
    QTest::newRow("space first") << QStringLiteral(" x") << QStringLiteral(" ");
    const QString smile = QString::fromUcs4(U"\U0001F600");
    QTest::newRow("surrogate pair first") << smile + QStringLiteral(" smile") << smile;
}

void tst_ElidedLabel::minimumWidthFromFirstCharacter()
{
    QFETCH(QString, text);
    QFETCH(QString, first);
    auto *label = labelWithText(Qt::ElideRight, 300, text);
    const QFontMetrics metrics(label->font());
    QCOMPARE(label->minimumWidth(), metrics.horizontalAdvance(first + QStringLiteral("...")) + 1);
    QVERIFY(label->minimumWidth() > 1);

    // The label cannot be squeezed below it.
    label->resize(1, 30);
    QCOMPARE(label->width(), label->minimumWidth());
}

void tst_ElidedLabel::minimumWidthKeptWhenTextCleared_data()
{
    QTest::addColumn<bool>("throughMode");
    QTest::newRow("setElideMode") << true;
    QTest::newRow("empty setText") << false;
}

void tst_ElidedLabel::minimumWidthKeptWhenTextCleared()
{
    QFETCH(bool, throughMode);
    auto *label = makeLabel();
    label->resize(300, 30);
    label->setText(QStringLiteral("Wonder"));
    const int minimum = QFontMetrics(label->font()).horizontalAdvance(QStringLiteral("W...")) + 1;
    QCOMPARE(label->minimumWidth(), minimum);
    if (throughMode)
        label->setElideMode(Qt::ElideMiddle);
    else
        label->setText(QString());
    QVERIFY(label->text().isEmpty());
    QCOMPARE(label->minimumWidth(), minimum);
    label->resize(250, 30);
    QCOMPARE(label->minimumWidth(), minimum);
}

void tst_ElidedLabel::twoDebugLinesPerUpdate_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("shortened");
    QTest::newRow("no text") << QString() << 200 << false;
    QTest::newRow("text fits") << QStringLiteral("Short") << 200 << false;
    QTest::newRow("text shortened") << longText << 90 << true;
}

void tst_ElidedLabel::twoDebugLinesPerUpdate()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    QFETCH(bool, shortened);
    auto *label = labelWithText(Qt::ElideRight, width, text);
    const QString shown = shownText(label);
    QCOMPARE(shown != text, shortened);

    capturedLines.clear();
    label->update();
    const QStringList expected = {QStringLiteral("m_cachedText : ") + text, QStringLiteral("ElidedLabel text: ") + shown};
    QCOMPARE(capturedLines, expected);

    capturedLines.clear();
    label->update();
    QCOMPARE(capturedLines, expected);
}

void tst_ElidedLabel::debugLinesOfSetTextAndResize()
{
    auto *label = makeLabel();
    label->resize(90, 30);
    capturedLines.clear();

    label->setText(longText);
    const QString shown = shownText(label);
    QCOMPARE(capturedLines,
             QStringList({QStringLiteral("m_cachedText : ") + longText, QStringLiteral("ElidedLabel text: ") + shown}));

    capturedLines.clear();
    label->resize(140, 30);
    QCOMPARE(capturedLines, QStringList({QStringLiteral("m_cachedText : ") + longText,
                                         QStringLiteral("ElidedLabel text: ") + shownText(label)}));

    capturedLines.clear();
    label->setElideMode(Qt::ElideLeft);
    QCOMPARE(capturedLines, QStringList({QStringLiteral("m_cachedText : "), QStringLiteral("ElidedLabel text: ")}));
}

void tst_ElidedLabel::richTextShownAsWritten()
{
    auto *label = makeLabel();
    const QString markup = QStringLiteral("<b>bold</b>");
    label->resize(fittingWidth(label, markup), 30);
    label->setText(markup);
    QCOMPARE(shownText(label), markup);
    QCOMPARE(label->textFormat(), Qt::PlainText);
}

QTEST_MAIN(tst_ElidedLabel)
#include "tst_elidedlabel.moc"
