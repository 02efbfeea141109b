// A small AES tool: text, key, IV, mode and padding in; hex out and back.
#include "gallerypage.h"
#include "pages.h"
#include "palette.h"

#include <Orvane/Orvane.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

using Codec = Orvane::AESCodec;

QPlainTextEdit *textBox(const QString &text, int lines)
{
    auto *box = new QPlainTextEdit(text);
    box->setObjectName(QStringLiteral("value"));
    box->setStyleSheet(themed(QStringLiteral("QPlainTextEdit{font-family:'DejaVu Sans Mono'; font-size:12px; "
                                             "border:1px solid @field@; border-radius:4px; background:#FBFBFD;}")));
    box->setFixedHeight(lines * 18 + 12);
    return box;
}

class AesPage : public GalleryPage
{
public:
    AesPage()
        : GalleryPage(QStringLiteral("aes"), tr("AES codec"),
                      tr("AESCodec encrypts and decrypts small buffers with AES-128, 192 or 256 in "
                         "four modes and three paddings. Encrypt writes hex; Decrypt reads it back."))
    {
        auto pair = addSectionPair(tr("In"), tr("Out"));
        auto *in = new QFormLayout(pair.first);
        in->setVerticalSpacing(10);
        m_text = textBox(tr("Orvane keeps the maker's settings files private."), 3);
        m_key = new QLineEdit(QStringLiteral("0123456789abcdef"));
        m_iv = new QLineEdit(QStringLiteral("fedcba9876543210"));
        m_hexKeys = new QCheckBox(tr("key and IV are hex"));
        m_level = new QComboBox;
        m_level->addItem(QStringLiteral("AES-128"), Codec::Aes128);
        m_level->addItem(QStringLiteral("AES-192"), Codec::Aes192);
        m_level->addItem(QStringLiteral("AES-256"), Codec::Aes256);
        m_mode = new QComboBox;
        m_mode->addItem(QStringLiteral("ECB"), Codec::Ecb);
        m_mode->addItem(QStringLiteral("CBC"), Codec::Cbc);
        m_mode->addItem(QStringLiteral("CFB"), Codec::Cfb);
        m_mode->addItem(QStringLiteral("OFB"), Codec::Ofb);
        m_mode->setCurrentIndex(1);
        m_padding = new QComboBox;
        m_padding->addItem(QStringLiteral("Zero"), Codec::ZeroPadding);
        m_padding->addItem(QStringLiteral("PKCS #7"), Codec::Pkcs7Padding);
        m_padding->addItem(QStringLiteral("ISO/IEC 7816-4"), Codec::IsoPadding);
        m_padding->setCurrentIndex(1);
        m_keyState = note(QString());
        in->addRow(tr("Text"), m_text);
        in->addRow(tr("Key"), m_key);
        in->addRow(tr("IV"), m_iv);
        in->addRow(QString(), m_hexKeys);
        in->addRow(QString(), m_keyState);
        auto *choices = new QHBoxLayout;
        choices->addWidget(m_level);
        choices->addWidget(m_mode);
        choices->addWidget(m_padding, 1);
        in->addRow(tr("Cipher"), choices);
        auto *encrypt = new QPushButton(tr("Encrypt"));
        in->addRow(QString(), encrypt);

        auto *out = new QFormLayout(pair.second);
        out->setVerticalSpacing(10);
        m_hex = textBox(QString(), 5);
        m_back = textBox(QString(), 3);
        m_back->setReadOnly(true);
        m_roundTrip = new QLabel;
        auto *decrypt = new QPushButton(tr("Decrypt"));
        out->addRow(tr("Hex"), m_hex);
        out->addRow(QString(), decrypt);
        out->addRow(tr("Back"), m_back);
        out->addRow(QString(), m_roundTrip);

        auto *check = addSection(tr("Known answer"));
        auto *checkLayout = new QVBoxLayout(check);
        const QByteArray plain = QByteArray::fromHex("00112233445566778899aabbccddeeff");
        const QByteArray key = QByteArray::fromHex("000102030405060708090a0b0c0d0e0f");
        const QByteArray cipher = Codec::Crypt(Codec::Aes128, Codec::Ecb, plain, key, QByteArray(),
                                               Codec::ZeroPadding);
        const bool right = cipher.toHex() == "69c4e0d86a7b0430d8cdb78070b4c55a";
        auto *line = new QLabel(tr("The standard's AES-128 example, key 000102...0f, block 00112233...ff:"
                                   "<br><code>%1</code> &nbsp; <b style='color:%2'>%3</b>")
                                    .arg(QString::fromLatin1(cipher.toHex()),
                                         right ? QStringLiteral("#1F9D55") : QStringLiteral("#D64545"),
                                         right ? tr("matches the standard") : tr("does not match")));
        checkLayout->addWidget(line);
        body()->addStretch();

        connect(encrypt, &QPushButton::clicked, this, [this] { encryptText(); });
        connect(decrypt, &QPushButton::clicked, this, [this] { decryptHex(); });
        for (QLineEdit *edit : {m_key, m_iv})
            connect(edit, &QLineEdit::textChanged, this, [this] { showKeyState(); });
        connect(m_hexKeys, &QCheckBox::toggled, this, [this] { showKeyState(); });
        connect(m_level, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] { showKeyState(); });
        connect(m_mode, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] { showKeyState(); });
        showKeyState();
        encryptText();
        decryptHex();
    }

private:
    QByteArray bytesOf(const QLineEdit *edit) const
    {
        return m_hexKeys->isChecked() ? QByteArray::fromHex(edit->text().toLatin1()) : edit->text().toUtf8();
    }

    Codec::Aes level() const { return Codec::Aes(m_level->currentData().toInt()); }
    Codec::Mode mode() const { return Codec::Mode(m_mode->currentData().toInt()); }
    Codec::Padding padding() const { return Codec::Padding(m_padding->currentData().toInt()); }

    void showKeyState()
    {
        const int wanted = 16 + 8 * m_level->currentIndex();
        const int key = bytesOf(m_key).size();
        const int iv = bytesOf(m_iv).size();
        QString text = tr("key %1 of %2 bytes").arg(key).arg(wanted);
        text += mode() == Codec::Ecb ? tr(", IV unused in ECB") : tr(", IV %1 of 16 bytes").arg(iv);
        const bool ok = key == wanted && (mode() == Codec::Ecb || iv == 16);
        m_keyState->setText(text);
        m_keyState->setStyleSheet(ok ? QStringLiteral("color:#1F9D55;") : QStringLiteral("color:#D64545;"));
    }

    void encryptText()
    {
        const QByteArray cipher = Codec::Crypt(level(), mode(), m_text->toPlainText().toUtf8(), bytesOf(m_key),
                                               bytesOf(m_iv), padding());
        m_hex->setPlainText(cipher.isEmpty() ? QString() : QString::fromLatin1(cipher.toHex(' ')));
        if (cipher.isEmpty())
            m_roundTrip->setText(tr("<span style='color:#D64545'>empty result: check the key and IV "
                                    "lengths</span>"));
    }

    void decryptHex()
    {
        const QByteArray cipher = QByteArray::fromHex(m_hex->toPlainText().toLatin1());
        const QByteArray plain = Codec::RemovePadding(
            Codec::Decrypt(level(), mode(), cipher, bytesOf(m_key), bytesOf(m_iv), padding()), padding());
        m_back->setPlainText(QString::fromUtf8(plain));
        const bool same = !plain.isEmpty() && plain == m_text->toPlainText().toUtf8();
        m_roundTrip->setText(same ? tr("<span style='color:#1F9D55'>the text came back unchanged</span>")
                                  : tr("<span style='color:#D64545'>not the text that went in</span>"));
    }

    QPlainTextEdit *m_text = nullptr;
    QLineEdit *m_key = nullptr;
    QLineEdit *m_iv = nullptr;
    QCheckBox *m_hexKeys = nullptr;
    QComboBox *m_level = nullptr;
    QComboBox *m_mode = nullptr;
    QComboBox *m_padding = nullptr;
    QLabel *m_keyState = nullptr;
    QPlainTextEdit *m_hex = nullptr;
    QPlainTextEdit *m_back = nullptr;
    QLabel *m_roundTrip = nullptr;
};

} // namespace

GalleryPage *makeAesPage()
{
    return new AesPage;
}
