// Writes the benchmark's catalogue into the folder given as the argument:
// 64 sheets "bench/sheet_NN.png" of 256 x 256 pixels, each cut into four
// rows of eight 32 x 32 slices, the slices.json describing them and the
// .qrc that packs them.
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>

#include <cstdio>

namespace {

constexpr int sheetCount = 64;
constexpr int sheetSize = 256;
constexpr int tile = 32;

QImage paintSheet(int index)
{
    QImage image(sheetSize, sheetSize, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QRandomGenerator random(quint32(index + 1));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int y = 0; y < sheetSize; y += tile) {
        for (int x = 0; x < sheetSize; x += tile) {
            QLinearGradient gradient(x, y, x + tile, y + tile);
            gradient.setColorAt(0, QColor::fromRgb(random.generate() | 0xff000000u));
            gradient.setColorAt(1, QColor::fromRgb(random.generate() | 0xff000000u));
            painter.setBrush(gradient);
            painter.setPen(QPen(QColor::fromRgb(random.generate()), 1.5));
            painter.drawEllipse(QRectF(x + 2, y + 2, tile - 4, tile - 4));
        }
    }
    return image;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <output folder>\n", argv[0]);
        return 2;
    }
    const QString root = QString::fromLocal8Bit(argv[1]);
    if (!QDir().mkpath(root + QStringLiteral("/bench")))
        return 1;

    QByteArray json = "[\n";
    QByteArray qrc = "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n<qresource prefix=\"/\">\n"
                     "    <file>slices.json</file>\n";
    for (int i = 0; i < sheetCount; ++i) {
        const QByteArray name = "bench/sheet_" + QByteArray::number(i).rightJustified(2, '0') + ".png";
        if (!paintSheet(i).save(root + QLatin1Char('/') + QString::fromLatin1(name), "PNG"))
            return 1;
        qrc += "    <file>" + name + "</file>\n";

        json += "    {\"filename\": \"" + name + "\", \"slices\": [";
        for (int row = 0; row < 4; ++row) {
            json += row ? ", " : "";
            json += "{\"prefix\": \"s" + QByteArray::number(i) + "_r" + QByteArray::number(row)
                + "_\", \"method\": {\"type\": \"hor-line\", \"begin\": \"0, "
                + QByteArray::number(row * tile) + "\", \"spacing\": 0, \"size\": \"32, 32\"}, \"items\": "
                "[\"a\", \"b\", \"c\", \"d\", \"e\", \"f\", \"g\", \"h\"]}";
        }
        json += i + 1 < sheetCount ? "]},\n" : "]}\n";
    }
    json += "]\n";
    qrc += "</qresource>\n</RCC>\n";

    QFile jsonFile(root + QStringLiteral("/slices.json"));
    QFile qrcFile(root + QStringLiteral("/sheets.qrc"));
    if (!jsonFile.open(QIODevice::WriteOnly) || !qrcFile.open(QIODevice::WriteOnly))
        return 1;
    jsonFile.write(json);
    qrcFile.write(qrc);
    return 0;
}
