#include "slices/sliceconfig_p.h"
#include "testcatalogue.h"

#include <QFile>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QtTest>

#include <climits>

// The reader of the slice configuration file, fed bytes directly. This
// executable embeds the test sheets but no ":/slices.json".
class tst_SliceConfig : public QObject
{
    Q_OBJECT

private:
    // One entry on the coordinate sheet with one group "p_" of a, b and c;
    // an empty `method` leaves the key out.
    static QByteArray oneGroup(const QByteArray &method)
    {
        const QByteArray methodKey = method.isEmpty() ? QByteArray() : "\"method\": " + method + ", ";
        return "[{\"filename\": \"sheets/coords.png\", \"slices\": [{\"prefix\": \"p_\", " + methodKey
            + "\"items\": [\"a\", \"b\", \"c\"]}]}]";
    }

    static QColor coordinateColour(int x, int y) { return QColor(x, y, 200); }

    // Reads `json` into `catalogue` with the debug lines kept out of the log.
    static bool readQuietly(TestCatalogue &catalogue, const QByteArray &json)
    {
        const DebugLines quiet;
        return Orvane::readSliceConfig(catalogue, json);
    }

    // What a host could do with anything that was read: cut every slice,
    // twice.
    static void cutEverything(TestCatalogue &catalogue)
    {
        const DebugLines quiet;
        const QStringList names = catalogue.m_slices.keys();
        for (const QString &name : names) {
            catalogue.slice(name);
            catalogue.slice(name);
        }
    }

private Q_SLOTS:
    void initTestCase();
    void missingFileGivesFalse();
    void topLevel_data();
    void topLevel();
    void geometry_data();
    void geometry();
    void parseMethod_data();
    void parseMethod();
    void cutsFollowTheGeometry();
    void wrongTypes_data();
    void wrongTypes();
    void lastDefinitionWins_data();
    void lastDefinitionWins();
    void missingSheet_data();
    void missingSheet();
    void sheetAddressesStayStable();
    void debugLinePerEntry();
    void readingAgainAppends();
    void hugeNumbersInJson_data();
    void hugeNumbersInJson();
    void deepNesting();
    void everyTruncation();
    void randomBytes();
    void randomTokens();
};

void tst_SliceConfig::initTestCase()
{
    QVERIFY(!QFile::exists(QStringLiteral(":/slices.json")));
    QVERIFY(!QPixmap(QStringLiteral(":/sheets/coords.png")).isNull());
}

void tst_SliceConfig::missingFileGivesFalse()
{
    TestCatalogue catalogue;
    QVERIFY(!catalogue.loadConfig());
    QVERIFY(catalogue.m_slices.isEmpty());
    QVERIFY(catalogue.m_images.empty());
    QVERIFY(catalogue.m_cache.isEmpty());
}

void tst_SliceConfig::topLevel_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("result");
    QTest::addColumn<int>("sheets");

    QTest::newRow("empty array") << QByteArray("[]") << true << 0;
    QTest::newRow("empty object") << QByteArray("{}") << true << 0;
    QTest::newRow("object with a sheet entry's keys")
        << QByteArray(R"({"filename": "sheets/coords.png", "slices": [{"items": ["a"]}]})") << true << 0;
    QTest::newRow("array of one empty entry") << QByteArray("[{}]") << true << 1;
    QTest::newRow("no bytes") << QByteArray() << false << 0;
    QTest::newRow("plain text") << QByteArray("not json at all") << false << 0;
    QTest::newRow("unterminated array") << QByteArray(R"([{"filename": "sheets/coords.png"})") << false << 0;
    QTest::newRow("trailing comma") << QByteArray("[{},]") << false << 0;
    QTest::newRow("trailing garbage") << QByteArray("[] x") << false << 0;
    QTest::newRow("bare number") << QByteArray("42") << false << 0;
    QTest::newRow("bare string") << QByteArray("\"slices\"") << false << 0;
    QTest::newRow("null") << QByteArray("null") << false << 0;
    QTest::newRow("nul bytes") << QByteArray("[\0\0]", 4) << false << 0;
}

void tst_SliceConfig::topLevel()
{
    QFETCH(QByteArray, json);
    QFETCH(bool, result);
    QFETCH(int, sheets);

    TestCatalogue catalogue;
    QCOMPARE(readQuietly(catalogue, json), result);
    QCOMPARE(int(catalogue.m_images.size()), sheets);
    QVERIFY(catalogue.m_slices.isEmpty());
}

void tst_SliceConfig::geometry_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QRect>("a");
    QTest::addColumn<QRect>("b");
    QTest::addColumn<QRect>("c");

    const int far = Orvane::maxSliceCoordinate;

    QTest::newRow("hor-line")
        << QByteArray(R"({"type": "hor-line", "begin": "2 3", "spacing": 4, "size": "10 20"})")
        << QRect(2, 3, 10, 20) << QRect(16, 3, 10, 20) << QRect(30, 3, 10, 20);
    QTest::newRow("ver-line")
        << QByteArray(R"({"type": "ver-line", "begin": "2 3", "spacing": 4, "size": "10 20"})")
        << QRect(2, 3, 10, 20) << QRect(2, 27, 10, 20) << QRect(2, 51, 10, 20);
    QTest::newRow("comma separators")
        << QByteArray(R"({"type": "hor-line", "begin": "2,3", "spacing": 4, "size": "10,20"})")
        << QRect(2, 3, 10, 20) << QRect(16, 3, 10, 20) << QRect(30, 3, 10, 20);
    QTest::newRow("comma and space")
        << QByteArray(R"({"type": "hor-line", "begin": "2, 3", "spacing": 4, "size": "10 ,20"})")
        << QRect(2, 3, 10, 20) << QRect(16, 3, 10, 20) << QRect(30, 3, 10, 20);
    QTest::newRow("separators around and doubled")
        << QByteArray(R"({"type": "hor-line", "begin": ", 2,,3 ", "spacing": 4, "size": "10  20,"})")
        << QRect(2, 3, 10, 20) << QRect(16, 3, 10, 20) << QRect(30, 3, 10, 20);
    QTest::newRow("begin with one number")
        << QByteArray(R"({"type": "hor-line", "begin": "2", "spacing": 4, "size": "10,20"})")
        << QRect(0, 0, 10, 20) << QRect(14, 0, 10, 20) << QRect(28, 0, 10, 20);
    QTest::newRow("begin with three numbers")
        << QByteArray(R"({"type": "hor-line", "begin": "2,3,4", "spacing": 4, "size": "10,20"})")
        << QRect(0, 0, 10, 20) << QRect(14, 0, 10, 20) << QRect(28, 0, 10, 20);
    QTest::newRow("begin split by a tab")
        << QByteArray(R"({"type": "hor-line", "begin": "2\t3", "spacing": 4, "size": "10,20"})")
        << QRect(0, 0, 10, 20) << QRect(14, 0, 10, 20) << QRect(28, 0, 10, 20);
    QTest::newRow("begin as an array")
        << QByteArray(R"({"type": "hor-line", "begin": [2, 3], "spacing": 4, "size": "10,20"})")
        << QRect(0, 0, 10, 20) << QRect(14, 0, 10, 20) << QRect(28, 0, 10, 20);
    QTest::newRow("begin as a number")
        << QByteArray(R"({"type": "hor-line", "begin": 2, "spacing": 4, "size": "10,20"})")
        << QRect(0, 0, 10, 20) << QRect(14, 0, 10, 20) << QRect(28, 0, 10, 20);
    QTest::newRow("begin part not a number")
        << QByteArray(R"({"type": "hor-line", "begin": "x,3", "spacing": 4, "size": "10,20"})")
        << QRect(0, 3, 10, 20) << QRect(14, 3, 10, 20) << QRect(28, 3, 10, 20);
    QTest::newRow("begin in hexadecimal")
        << QByteArray(R"({"type": "hor-line", "begin": "0x10,3", "spacing": 4, "size": "10,20"})")
        << QRect(0, 3, 10, 20) << QRect(14, 3, 10, 20) << QRect(28, 3, 10, 20);
    QTest::newRow("size as an array")
        << QByteArray(R"({"type": "hor-line", "begin": "2,3", "spacing": 4, "size": [10, 20]})")
        << QRect(2, 3, 0, 0) << QRect(6, 3, 0, 0) << QRect(10, 3, 0, 0);
    QTest::newRow("size with one number")
        << QByteArray(R"({"type": "hor-line", "begin": "2,3", "spacing": 4, "size": "10"})")
        << QRect(2, 3, 0, 0) << QRect(6, 3, 0, 0) << QRect(10, 3, 0, 0);
    QTest::newRow("negative width")
        << QByteArray(R"({"type": "hor-line", "begin": "2,3", "spacing": 4, "size": "-10,20"})")
        << QRect(2, 3, -10, 20) << QRect(-4, 3, -10, 20) << QRect(-10, 3, -10, 20);
    QTest::newRow("negative spacing overlaps")
        << QByteArray(R"({"type": "hor-line", "begin": "2,3", "spacing": -4, "size": "10,20"})")
        << QRect(2, 3, 10, 20) << QRect(8, 3, 10, 20) << QRect(14, 3, 10, 20);
    QTest::newRow("spacing as a numeric string")
        << QByteArray(R"({"type": "ver-line", "begin": "2,3", "spacing": "4", "size": "10,20"})")
        << QRect(2, 3, 10, 20) << QRect(2, 27, 10, 20) << QRect(2, 51, 10, 20);
    QTest::newRow("spacing not a number")
        << QByteArray(R"({"type": "hor-line", "begin": "2,3", "spacing": "wide", "size": "10,20"})")
        << QRect(2, 3, 10, 20) << QRect(12, 3, 10, 20) << QRect(22, 3, 10, 20);
    QTest::newRow("spacing as an array")
        << QByteArray(R"({"type": "hor-line", "begin": "2,3", "spacing": [4], "size": "10,20"})")
        << QRect(2, 3, 10, 20) << QRect(12, 3, 10, 20) << QRect(22, 3, 10, 20);
    QTest::newRow("type in other letter case")
        << QByteArray(R"({"type": "Hor-line", "begin": "2,3", "spacing": 4, "size": "10,20"})")
        << QRect() << QRect() << QRect();
    QTest::newRow("type with a trailing space")
        << QByteArray(R"({"type": "ver-line ", "begin": "2,3", "spacing": 4, "size": "10,20"})")
        << QRect() << QRect() << QRect();
    QTest::newRow("type unknown")
        << QByteArray(R"({"type": "grid", "begin": "2,3", "spacing": 4, "size": "10,20"})")
        << QRect() << QRect() << QRect();
    QTest::newRow("type as a number")
        << QByteArray(R"({"type": 1, "begin": "2,3", "spacing": 4, "size": "10,20"})")
        << QRect() << QRect() << QRect();
    QTest::newRow("type missing")
        << QByteArray(R"({"begin": "2,3", "spacing": 4, "size": "10,20"})")
        << QRect() << QRect() << QRect();
    QTest::newRow("method missing") << QByteArray() << QRect() << QRect() << QRect();
    QTest::newRow("method as an array")
        << QByteArray(R"(["hor-line", "2,3", 4, "10,20"])") << QRect() << QRect() << QRect();
    QTest::newRow("method as text") << QByteArray(R"("hor-line")") << QRect() << QRect() << QRect();
    QTest::newRow("huge begin is clamped")
        << QByteArray(R"({"type": "hor-line", "begin": "2147483647,3", "spacing": 4, "size": "10,20"})")
        << QRect(far, 3, 10, 20) << QRect(far, 3, 10, 20) << QRect(far, 3, 10, 20);
    QTest::newRow("size beyond int reads as 0")
        << QByteArray(R"({"type": "hor-line", "begin": "2,3", "spacing": 4, "size": "99999999999,20"})")
        << QRect(2, 3, 0, 20) << QRect(6, 3, 0, 20) << QRect(10, 3, 0, 20);
    QTest::newRow("huge spacing is clamped")
        << QByteArray(R"({"type": "hor-line", "begin": "2,3", "spacing": 2147483647, "size": "10,20"})")
        << QRect(2, 3, 10, 20) << QRect(far, 3, 10, 20) << QRect(far, 3, 10, 20);
    QTest::newRow("extremes do not wrap")
        << QByteArray(R"({"type": "ver-line", "begin": "-2147483648,-2147483648", "spacing": 4,)"
                      R"( "size": "10,2147483647"})")
        << QRect(-far, -far, 10, far) << QRect(-far, 3, 10, far) << QRect(-far, far, 10, far);
}

void tst_SliceConfig::geometry()
{
    QFETCH(QByteArray, method);
    QFETCH(QRect, a);
    QFETCH(QRect, b);
    QFETCH(QRect, c);

    TestCatalogue catalogue;
    QVERIFY(readQuietly(catalogue, oneGroup(method)));
    QCOMPARE(catalogue.m_slices.keys(), QStringList({"p_a", "p_b", "p_c"}));
    QCOMPARE(catalogue.m_slices.value("p_a").rect, a);
    QCOMPARE(catalogue.m_slices.value("p_b").rect, b);
    QCOMPARE(catalogue.m_slices.value("p_c").rect, c);
    QVERIFY(catalogue.slicesPointIntoSheets());
    cutEverything(catalogue);
}

void tst_SliceConfig::parseMethod_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<int>("type");
    QTest::addColumn<QPoint>("begin");
    QTest::addColumn<int>("spacing");
    QTest::addColumn<QSize>("size");

    QTest::newRow("empty") << QByteArray("{}") << 0 << QPoint(0, 0) << 0 << QSize(0, 0);
    QTest::newRow("hor-line")
        << QByteArray(R"({"type": "hor-line", "begin": "7, 8", "spacing": 9, "size": "5,6"})")
        << 1 << QPoint(7, 8) << 9 << QSize(5, 6);
    QTest::newRow("ver-line") << QByteArray(R"({"type": "ver-line"})") << 2 << QPoint(0, 0) << 0 << QSize(0, 0);
    QTest::newRow("fields of the wrong type")
        << QByteArray(R"({"type": ["hor-line"], "begin": {"x": 1}, "spacing": null, "size": true})")
        << 0 << QPoint(0, 0) << 0 << QSize(0, 0);
    QTest::newRow("numeric strings with signs")
        << QByteArray(R"({"begin": "-7 +8", "spacing": "-3", "size": "+5,-6"})")
        << 0 << QPoint(-7, 8) << -3 << QSize(5, -6);
    QTest::newRow("keys are case-sensitive")
        << QByteArray(R"({"Type": "hor-line", "Begin": "1,2", "Spacing": 3, "Size": "4,5"})")
        << 0 << QPoint(0, 0) << 0 << QSize(0, 0);
}

void tst_SliceConfig::parseMethod()
{
    QFETCH(QByteArray, method);
    QFETCH(int, type);
    QFETCH(QPoint, begin);
    QFETCH(int, spacing);
    QFETCH(QSize, size);

    const Orvane::SliceMethod parsed = Orvane::parseSliceMethod(QJsonDocument::fromJson(method).toVariant().toMap());
    QCOMPARE(parsed.type, type);
    QCOMPARE(parsed.begin, begin);
    QCOMPARE(parsed.spacing, spacing);
    QCOMPARE(parsed.size, size);
}

void tst_SliceConfig::cutsFollowTheGeometry()
{
    TestCatalogue catalogue;
    QVERIFY(readQuietly(catalogue,
        R"([{"filename": "sheets/coords.png", "slices": [)"
        R"({"prefix": "p_", "method": {"type": "hor-line", "begin": "2 3", "spacing": 4, "size": "10 20"},)"
        R"( "items": ["a", "b", "c"]},)"
        R"({"prefix": "v_", "method": {"type": "ver-line", "begin": "2 3", "spacing": 4, "size": "10 20"},)"
        R"( "items": ["a", "b", "c"]},)"
        R"({"prefix": "e_", "method": {"type": "hor-line", "begin": "2 3", "size": [10, 20]}, "items": ["a", "b"]}]}])"));

    const DebugLines quiet;
    const QVector<QPair<QString, QPoint>> expected = {
        {"p_a", {2, 3}}, {"p_b", {16, 3}}, {"p_c", {30, 3}},
        {"v_a", {2, 3}}, {"v_b", {2, 27}}, {"v_c", {2, 51}},
    };
    for (const auto &slice : expected) {
        const QImage cut = catalogue.slice(slice.first).toImage();
        QCOMPARE(cut.size(), QSize(10, 20));
        QCOMPARE(QColor(cut.pixel(0, 0)), coordinateColour(slice.second.x(), slice.second.y()));
        QCOMPARE(QColor(cut.pixel(9, 19)), coordinateColour(slice.second.x() + 9, slice.second.y() + 19));
    }
    // An empty rectangle copies the whole sheet.
    QCOMPARE(catalogue.slice("e_a").size(), QSize(128, 96));
    QCOMPARE(catalogue.slice("e_b").size(), QSize(128, 96));
}

void tst_SliceConfig::wrongTypes_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("sheets");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("items of every JSON type")
        << QByteArray(R"([{"filename": "sheets/coords.png", "slices": [{"prefix": "p_",)"
                      R"( "items": ["s", 5, 1.5, true, null, {}, []]}]}])")
        << 1 << QStringList({"p_", "p_1.5", "p_5", "p_s", "p_true"});
    QTest::newRow("item object named by the prefix alone")
        << QByteArray(R"([{"slices": [{"prefix": "only", "items": [{"name": "x"}]}]}])")
        << 1 << QStringList({"only"});
    QTest::newRow("prefix is a number")
        << QByteArray(R"([{"slices": [{"prefix": 7, "items": ["a"]}]}])") << 1 << QStringList({"7a"});
    QTest::newRow("prefix is an object")
        << QByteArray(R"([{"slices": [{"prefix": {"p": 1}, "items": ["a"]}]}])") << 1 << QStringList({"a"});
    QTest::newRow("items is text")
        << QByteArray(R"([{"slices": [{"prefix": "p_", "items": "abc"}]}])") << 1 << QStringList();
    QTest::newRow("items is an object")
        << QByteArray(R"([{"slices": [{"prefix": "p_", "items": {"a": "b"}}]}])") << 1 << QStringList();
    QTest::newRow("items is missing") << QByteArray(R"([{"slices": [{"prefix": "p_"}]}])") << 1 << QStringList();
    QTest::newRow("group is not an object")
        << QByteArray(R"([{"slices": [5, "a", null, ["a"], {"items": ["b"]}]}])") << 1 << QStringList({"b"});
    QTest::newRow("slices is an object")
        << QByteArray(R"([{"slices": {"items": ["a"]}}])") << 1 << QStringList();
    QTest::newRow("slices is text") << QByteArray(R"([{"slices": "a"}])") << 1 << QStringList();
    QTest::newRow("filename is a number")
        << QByteArray(R"([{"filename": 5, "slices": [{"items": ["a"]}]}])") << 1 << QStringList({"a"});
    QTest::newRow("entries that are not objects")
        << QByteArray(R"([5, "sheets/coords.png", null, [], true])") << 5 << QStringList();
    QTest::newRow("unknown keys are ignored")
        << QByteArray(R"([{"sheet": "x", "slices": [{"item": ["z"], "items": ["a"], "extra": 1}], "more": {}}])")
        << 1 << QStringList({"a"});
    QTest::newRow("keys are case-sensitive")
        << QByteArray(R"([{"Slices": [{"items": ["a"]}]}, {"slices": [{"Items": ["b"]}]}])") << 2 << QStringList();
    QTest::newRow("names keep any characters")
        << QByteArray(R"([{"slices": [{"prefix": "../", "items": ["a b", "\u00e9", "\u0000"]}]}])")
        << 1 << QStringList({QStringLiteral("../") + QChar(0), "../a b", QStringLiteral("../\u00e9")});
}

void tst_SliceConfig::wrongTypes()
{
    QFETCH(QByteArray, json);
    QFETCH(int, sheets);
    QFETCH(QStringList, names);

    TestCatalogue catalogue;
    QVERIFY(readQuietly(catalogue, json));
    QCOMPARE(int(catalogue.m_images.size()), sheets);
    QCOMPARE(catalogue.m_slices.keys(), names);
    QVERIFY(catalogue.slicesPointIntoSheets());
    cutEverything(catalogue);
}

void tst_SliceConfig::lastDefinitionWins_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("sheet");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QColor>("colour");

    QTest::newRow("two groups on one sheet")
        << QByteArray(R"([{"filename": "sheets/coords.png", "slices": [)"
                      R"({"method": {"type": "hor-line", "begin": "2,3", "size": "10,20"}, "items": ["x"]},)"
                      R"({"method": {"type": "ver-line", "begin": "40,50", "size": "5,6"}, "items": ["x"]}]}])")
        << 0 << QRect(40, 50, 5, 6) << coordinateColour(40, 50);
    QTest::newRow("one group naming it twice")
        << QByteArray(R"([{"filename": "sheets/coords.png", "slices": [)"
                      R"({"method": {"type": "hor-line", "begin": "2,3", "spacing": 4, "size": "10,20"},)"
                      R"( "items": ["x", "x"]}]}])")
        << 0 << QRect(16, 3, 10, 20) << coordinateColour(16, 3);
    QTest::newRow("two sheets")
        << QByteArray(R"([{"filename": "sheets/coords.png", "slices": [)"
                      R"({"method": {"type": "hor-line", "begin": "2,3", "size": "10,20"}, "items": ["x"]}]},)"
                      R"({"filename": "sheets/solid.png", "slices": [{"items": ["x"]}]}])")
        << 1 << QRect() << QColor(20, 40, 240);
    QTest::newRow("a later sheet that failed to load")
        << QByteArray(R"([{"filename": "sheets/solid.png", "slices": [{"items": ["x"]}]},)"
                      R"({"filename": "sheets/absent.png", "slices": [{"items": ["x"]}]}])")
        << 1 << QRect() << QColor();
}

void tst_SliceConfig::lastDefinitionWins()
{
    QFETCH(QByteArray, json);
    QFETCH(int, sheet);
    QFETCH(QRect, rect);
    QFETCH(QColor, colour);

    TestCatalogue catalogue;
    QVERIFY(readQuietly(catalogue, json));
    QCOMPARE(catalogue.m_slices.size(), 1);
    QCOMPARE(catalogue.sheetIndexOf("x"), sheet);
    QCOMPARE(catalogue.m_slices.value("x").rect, rect);

    const DebugLines quiet;
    const QPixmap cut = catalogue.slice("x");
    if (colour.isValid())
        QCOMPARE(QColor(cut.toImage().pixel(0, 0)), colour);
    else
        QVERIFY(cut.isNull());
}

void tst_SliceConfig::missingSheet_data()
{
    QTest::addColumn<QByteArray>("entry");

    QTest::newRow("no filename") << QByteArray(R"("slices": [{"items": ["a", "b"]}])");
    QTest::newRow("empty filename") << QByteArray(R"("filename": "", "slices": [{"items": ["a", "b"]}])");
    QTest::newRow("not in the resources")
        << QByteArray(R"("filename": "sheets/absent.png", "slices": [{"items": ["a", "b"]}])");
    QTest::newRow("a folder") << QByteArray(R"("filename": "sheets", "slices": [{"items": ["a", "b"]}])");
    QTest::newRow("with the leading colon slash")
        << QByteArray(R"("filename": ":/sheets/coords.png", "slices": [{"items": ["a", "b"]}])");
    QTest::newRow("not an image")
        << QByteArray(R"("filename": "sheets/", "method": {}, "slices": [{"items": ["a", "b"]}])");
}

void tst_SliceConfig::missingSheet()
{
    QFETCH(QByteArray, entry);

    TestCatalogue catalogue;
    QVERIFY(readQuietly(catalogue, "[{" + entry + "}]"));
    QCOMPARE(int(catalogue.m_images.size()), 1);
    QVERIFY(catalogue.m_images.front().isNull());
    QCOMPARE(catalogue.m_slices.keys(), QStringList({"a", "b"}));
    QCOMPARE(catalogue.m_slices.value("a").image, &catalogue.m_images.front());

    const DebugLines quiet;
    QVERIFY(catalogue.slice("a").isNull());
    QVERIFY(catalogue.slice("a").isNull());
    QVERIFY(catalogue.m_cache.contains("a"));
    QVERIFY(catalogue.m_cache.value("a").isNull());
}

void tst_SliceConfig::sheetAddressesStayStable()
{
    QByteArray json = "[";
    const int entries = 300;
    for (int i = 0; i < entries; ++i) {
        json += i ? "," : "";
        json += R"({"filename": "sheets/)" + QByteArray(i % 2 ? "solid" : "coords")
            + R"(.png", "slices": [{"prefix": "n", "items": [)" + QByteArray::number(i) + "]}]}";
    }
    json += "]";

    TestCatalogue catalogue;
    QVERIFY(readQuietly(catalogue, json));
    QCOMPARE(int(catalogue.m_images.size()), entries);
    for (int i = 0; i < entries; ++i)
        QCOMPARE(catalogue.m_slices.value("n" + QString::number(i)).image, &catalogue.m_images.at(size_t(i)));

    const DebugLines quiet;
    QCOMPARE(QColor(catalogue.slice("n0").toImage().pixel(5, 6)), coordinateColour(5, 6));
    QCOMPARE(QColor(catalogue.slice("n299").toImage().pixel(5, 6)), QColor(20, 40, 240));
}

void tst_SliceConfig::debugLinePerEntry()
{
    TestCatalogue catalogue;
    const DebugLines lines;
    QVERIFY(Orvane::readSliceConfig(catalogue,
        R"([{"slices": []}, {"slices": [{"items": ["b", "a"]}]}, {"slices": [{"prefix": "c", "items": [""]}]}])"));
    QCOMPARE(DebugLines::lines(), QStringList({
        "slices:  ()",
        "slices:  (\"a\", \"b\")",
        "slices:  (\"a\", \"b\", \"c\")",
    }));
}

void tst_SliceConfig::readingAgainAppends()
{
    const QByteArray json = R"([{"filename": "sheets/coords.png", "slices": [)"
                            R"({"method": {"type": "hor-line", "begin": "2,3", "size": "10,20"}, "items": ["a"]}]},)"
                            R"({"filename": "sheets/solid.png", "slices": [{"items": ["b"]}]}])";
    TestCatalogue catalogue;
    QVERIFY(readQuietly(catalogue, json));
    const DebugLines quiet;
    const QPixmap first = catalogue.slice("a");
    QVERIFY(!first.isNull());

    QVERIFY(Orvane::readSliceConfig(catalogue, json));
    QCOMPARE(int(catalogue.m_images.size()), 4);
    QCOMPARE(catalogue.m_slices.keys(), QStringList({"a", "b"}));
    QCOMPARE(catalogue.sheetIndexOf("a"), 2);
    QCOMPARE(catalogue.sheetIndexOf("b"), 3);
    QVERIFY(!catalogue.m_images.at(0).isNull());
    // What was cut before stays in the cache.
    QCOMPARE(catalogue.m_cache.size(), 1);
    QCOMPARE(catalogue.slice("a").cacheKey(), first.cacheKey());
}

void tst_SliceConfig::hugeNumbersInJson_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("1e300") << QByteArray("1e300") << true;
    QTest::newRow("-1e300") << QByteArray("-1e300") << true;
    QTest::newRow("2^63") << QByteArray("9223372036854775808") << true;
    QTest::newRow("below int") << QByteArray("-2147483649") << true;
    QTest::newRow("2^32") << QByteArray("4294967296") << true;
    QTest::newRow("thirty digits") << QByteArray("123456789012345678901234567890") << true;
    QTest::newRow("a half") << QByteArray("0.5") << true;
    QTest::newRow("negative zero") << QByteArray("-0.0") << true;
    // Qt's JSON reader refuses numbers a double cannot hold.
    QTest::newRow("beyond double") << QByteArray("1e400") << false;
    QTest::newRow("below double") << QByteArray("1e-400") << false;
}

void tst_SliceConfig::hugeNumbersInJson()
{
    QFETCH(QByteArray, number);
    QFETCH(bool, accepted);

    // The number as prefix, begin, spacing and item names.
    TestCatalogue catalogue;
    const QByteArray json = R"([{"filename": "sheets/coords.png", "slices": [{"prefix": )" + number
        + R"(, "method": {"type": "ver-line", "begin": )" + number + R"(, "spacing": )" + number
        + R"(, "size": "10,20"}, "items": [)" + number + ", " + number + ", " + number + "]}]}]";
    QCOMPARE(readQuietly(catalogue, json), accepted);
    QCOMPARE(catalogue.m_slices.isEmpty(), !accepted);
    for (const Orvane::Slice &slice : qAsConst(catalogue.m_slices)) {
        QCOMPARE(slice.rect.x(), 0);
        QVERIFY(qAbs(slice.rect.y()) <= Orvane::maxSliceCoordinate);
        QCOMPARE(slice.rect.size(), QSize(10, 20));
    }
    cutEverything(catalogue);
}

void tst_SliceConfig::deepNesting()
{
    const int depth = 100000;
    const QByteArray arrays = QByteArray(depth, '[') + QByteArray(depth, ']');
    QByteArray objects;
    for (int i = 0; i < depth; ++i)
        objects += "{\"slices\":";
    objects += "0" + QByteArray(depth, '}');
    const QByteArray inGroup = R"([{"slices": [{"items": )" + arrays + "}]}]";

    for (const QByteArray &json : {arrays, objects, inGroup}) {
        TestCatalogue catalogue;
        QVERIFY(!readQuietly(catalogue, json));
        QVERIFY(catalogue.m_images.empty());
    }
}

void tst_SliceConfig::everyTruncation()
{
    const QByteArray json = oneGroup(R"({"type": "hor-line", "begin": "2 3", "spacing": 4, "size": "10 20"})");
    for (int length = 0; length < json.size(); ++length) {
        TestCatalogue catalogue;
        QVERIFY2(!readQuietly(catalogue, json.left(length)), json.left(length).constData());
        QVERIFY(catalogue.m_slices.isEmpty());
    }
    TestCatalogue catalogue;
    QVERIFY(readQuietly(catalogue, json));
    QCOMPARE(catalogue.m_slices.size(), 3);
}

void tst_SliceConfig::randomBytes()
{
    QRandomGenerator random(20240601);
    for (int round = 0; round < 300; ++round) {
        QByteArray bytes(int(random.bounded(600)), Qt::Uninitialized);
        for (char &byte : bytes)
            byte = char(random.bounded(256));
        TestCatalogue catalogue;
        readQuietly(catalogue, bytes);
        QVERIFY(catalogue.slicesPointIntoSheets());
        cutEverything(catalogue);
    }
}

void tst_SliceConfig::randomTokens()
{
    // Mostly well-formed documents with the file's own keys in odd places.
    const QByteArray tokens[] = {
        "[", "]", "{", "}", ",", ":", "\"filename\"", "\"slices\"", "\"prefix\"", "\"method\"", "\"items\"",
        "\"type\"", "\"begin\"", "\"spacing\"", "\"size\"", "\"hor-line\"", "\"ver-line\"",
        "\"sheets/coords.png\"", "\"sheets/solid.png\"", "\"2, 3\"", "\"-7 99999999\"", "\"10,20\"",
        "\"a\"", "\"\"", "0", "-4", "2147483647", "1e308", "true", "null",
    };
    const int tokenCount = int(sizeof(tokens) / sizeof(tokens[0]));
    QRandomGenerator random(7);
    int accepted = 0;
    for (int round = 0; round < 2000; ++round) {
        QByteArray json = "[{\"filename\": \"sheets/coords.png\", \"slices\": [{";
        const int length = int(random.bounded(40));
        for (int i = 0; i < length; ++i)
            json += tokens[random.bounded(tokenCount)];
        json += "}]}]";
        TestCatalogue catalogue;
        accepted += readQuietly(catalogue, json) ? 1 : 0;
        QVERIFY(catalogue.slicesPointIntoSheets());
        cutEverything(catalogue);
    }
    QVERIFY(accepted > 0);
}

QTEST_MAIN(tst_SliceConfig)
#include "tst_sliceconfig.moc"
