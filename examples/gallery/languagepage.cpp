// The sixteen language packs, switched live, with the current locale and pack.
#include "gallerypage.h"
#include "pages.h"
#include "palette.h"

#include <Orvane/Orvane.h>

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

QStringList languagePacks()
{
    return {QStringLiteral("English"),    QStringLiteral("French"),  QStringLiteral("German"),
            QStringLiteral("Spanish"),    QStringLiteral("Portuguese"), QStringLiteral("Italian"),
            QStringLiteral("Dutch"),      QStringLiteral("Russian"), QStringLiteral("Turkish"),
            QStringLiteral("Arabic"),     QStringLiteral("Hindi"),   QStringLiteral("Indonesian"),
            QStringLiteral("Japanese"),   QStringLiteral("Korean"),  QStringLiteral("zh_CN"),
            QStringLiteral("zh_TW")};
}

QLocale localeOfPack(const QString &pack)
{
    static const QMap<QString, QLocale> locales = {
        {QStringLiteral("French"), QLocale(QLocale::French, QLocale::France)},
        {QStringLiteral("German"), QLocale(QLocale::German, QLocale::Germany)},
        {QStringLiteral("Spanish"), QLocale(QLocale::Spanish, QLocale::Spain)},
        {QStringLiteral("Portuguese"), QLocale(QLocale::Portuguese, QLocale::Brazil)},
        {QStringLiteral("Italian"), QLocale(QLocale::Italian, QLocale::Italy)},
        {QStringLiteral("Dutch"), QLocale(QLocale::Dutch, QLocale::Netherlands)},
        {QStringLiteral("Russian"), QLocale(QLocale::Russian, QLocale::Russia)},
        {QStringLiteral("Turkish"), QLocale(QLocale::Turkish, QLocale::Turkey)},
        {QStringLiteral("Arabic"), QLocale(QLocale::Arabic, QLocale::SaudiArabia)},
        {QStringLiteral("Hindi"), QLocale(QLocale::Hindi, QLocale::India)},
        {QStringLiteral("Indonesian"), QLocale(QLocale::Indonesian, QLocale::Indonesia)},
        {QStringLiteral("Japanese"), QLocale(QLocale::Japanese, QLocale::Japan)},
        {QStringLiteral("Korean"), QLocale(QLocale::Korean, QLocale::SouthKorea)},
        {QStringLiteral("zh_CN"), QLocale(QLocale::Chinese, QLocale::SimplifiedHanScript, QLocale::China)},
        {QStringLiteral("zh_TW"), QLocale(QLocale::Chinese, QLocale::TraditionalHanScript, QLocale::Taiwan)},
    };
    return locales.value(pack, QLocale(QLocale::English, QLocale::UnitedStates));
}

namespace {

class LanguagePage : public GalleryPage
{
public:
    LanguagePage()
        : GalleryPage(QStringLiteral("language"), tr("Language"),
                      tr("Pick a pack: the gallery stores the locale and the pack in its settings and "
                         "calls freshLanguage(), which swaps the library's translator at once."))
    {
        auto *row = new QHBoxLayout;
        row->setSpacing(14);
        body()->addLayout(row, 1);

        auto *packsBox = new QGroupBox(tr("Language packs"));
        auto *packsLayout = new QVBoxLayout(packsBox);
        m_list = new QListWidget;
        m_list->setStyleSheet(themed(QStringLiteral(
            "QListWidget{border:none; font-size:13px;}"
            "QListWidget::item{padding:3px 6px;}"
            "QListWidget::item:selected{background:@accent@; color:white; border-radius:4px;}")));
        m_list->addItems(languagePacks());
        packsLayout->addWidget(m_list);
        packsBox->setFixedWidth(200);
        row->addWidget(packsBox);

        auto *current = new QGroupBox(tr("Now"));
        auto *grid = new QGridLayout(current);
        grid->setVerticalSpacing(8);
        const QStringList names = {
            QStringLiteral("getAppLocaleName()"),       QStringLiteral("getAppLocale()"),
            QStringLiteral("getCurrentLocalePackName()"), QStringLiteral("languageFileNameToPath()"),
            QStringLiteral("getOSLanguage()"),          QStringLiteral("localePackName(system)"),
        };
        for (const QString &name : names) {
            const int r = grid->rowCount();
            grid->addWidget(new QLabel(name), r, 0);
            auto *value = valueLabel();
            grid->addWidget(value, r, 1);
            m_values.append(value);
        }
        auto *sampleTitle = new QLabel(tr("The library's \"OK\" button reads"));
        m_sample = new QLabel;
        m_sample->setAlignment(Qt::AlignCenter);
        m_sample->setMinimumSize(140, 36);
        m_sample->setStyleSheet(QStringLiteral(
            "font-size:15px; color:white; border-radius:18px; padding:0 18px;"
            "background:qlineargradient(x1:0 y1:0, x2:1 y2:0, stop:0 #5C8BFF, stop:1 #9A68FF);"));
        auto *openBox = new QPushButton(tr("Open a message box"));
        connect(openBox, &QPushButton::clicked, this, [] { showSampleBox(); });
        auto *sampleRow = new QHBoxLayout;
        sampleRow->addWidget(m_sample);
        sampleRow->addSpacing(12);
        sampleRow->addWidget(openBox);
        sampleRow->addStretch();
        const int r = grid->rowCount();
        grid->addWidget(sampleTitle, r, 0);
        grid->addLayout(sampleRow, r, 1);
        grid->addWidget(note(tr("English is the library's own language and has no pack file; the "
                                "other fifteen are compiled into the library. Qt sends every widget "
                                "a LanguageChange event when the translator changes, and this page "
                                "refreshes itself from it.")),
                        r + 1, 0, 1, 2);
        grid->setColumnStretch(1, 1);
        grid->setRowStretch(r + 2, 1);
        row->addWidget(current, 1);

        m_list->setCurrentRow(languagePacks().indexOf(Orvane::getCurrentLocalePackName()));
        connect(m_list, &QListWidget::currentTextChanged, this, [this](const QString &pack) { choose(pack); });
        refresh();
    }

    void stageShot() override
    {
        m_before = Orvane::getCurrentLocalePackName();
        m_list->setCurrentRow(languagePacks().indexOf(QStringLiteral("German")));
        showSampleBox();
        // Move the box below the page's values, as a user would drag it.
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *w : windows)
            if (qobject_cast<Orvane::OMessageBox *>(w))
                w->move(w->pos() + QPoint(120, 190));
    }

    void endShot() override
    {
        closeMessageBoxes();
        m_list->setCurrentRow(languagePacks().indexOf(m_before));
    }

protected:
    void changeEvent(QEvent *event) override
    {
        if (event->type() == QEvent::LanguageChange)
            refresh();
        GalleryPage::changeEvent(event);
    }

private:
    static void showSampleBox()
    {
        Orvane::OMessageBox::showTips(Orvane::Success, tr("The box's own button follows the language pack."),
                                      tr("Switched live"));
    }

    static void choose(const QString &pack)
    {
        if (pack.isEmpty())
            return;
        const QLocale locale = localeOfPack(pack);
        Orvane::setAppLocale(locale);
        Orvane::setCurrentLocale(locale);
        Orvane::freshLanguage(pack);
    }

    void refresh()
    {
        const QString pack = Orvane::getCurrentLocalePackName();
        const QString path = Orvane::languageFileNameToPath(pack);
        const QLocale locale = Orvane::getAppLocale();
        const QStringList values = {
            Orvane::getAppLocaleName(),
            QStringLiteral("%1 / %2").arg(QLocale::languageToString(locale.language()),
                                          QLocale::countryToString(locale.country())),
            pack,
            path + (QFile::exists(path) ? tr("  (in the library)") : tr("  (no file: English)")),
            Orvane::getOSLanguage().isEmpty() ? tr("(empty: the system locale is C)") : Orvane::getOSLanguage(),
            Orvane::localePackName(QLocale::system()),
        };
        for (int i = 0; i < values.size(); ++i)
            m_values.at(i)->setText(values.at(i));
        m_sample->setText(QCoreApplication::translate("Orvane::OMessageBox", "OK"));
    }

    QListWidget *m_list = nullptr;
    QList<QLabel *> m_values;
    QLabel *m_sample = nullptr;
    QString m_before;
};

} // namespace

GalleryPage *makeLanguagePage()
{
    return new LanguagePage;
}
