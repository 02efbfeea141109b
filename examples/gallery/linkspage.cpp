// The product web links: each category's redirect URL, opened on request,
// and the first-launch rule.
#include "gallerypage.h"
#include "pages.h"
#include "palette.h"

#include <Orvane/Orvane.h>

#include <QDesktopServices>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QTableWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace {

// Stands in for the browser while it is registered as the handler of
// "http" links: the library's calls land here, so the gallery can show the
// address that would have been opened.
class UrlCatcher : public QObject
{
    Q_OBJECT
public:
    QUrl last;

public Q_SLOTS:
    void catchUrl(const QUrl &url) { last = url; }
};

// Runs `call` with the catcher in place of the browser and returns the
// address it would have opened (empty when it opened none).
template<typename Call>
QString catchOpenedUrl(UrlCatcher &catcher, Call call)
{
    catcher.last = QUrl();
    QDesktopServices::setUrlHandler(QStringLiteral("http"), &catcher, "catchUrl");
    call();
    QDesktopServices::unsetUrlHandler(QStringLiteral("http"));
    return catcher.last.toString();
}

struct Category
{
    Orvane::RdxUrlCategory value;
    const char *name;
};

const Category categories[] = {
    {Orvane::Category0, "Category0"}, {Orvane::Category1, "Category1"},
    {Orvane::Category2, "Category2"}, {Orvane::Category3, "Category3"},
    {Orvane::Category4, "Category4"}, {Orvane::Category5, "Category5"},
    {Orvane::Category6, "Category6"}, {Orvane::Category7, "Category7"},
    {Orvane::Category8, "Category8"}, {Orvane::Category9, "Category9"},
    {Orvane::FirstLaunch, "FirstLaunch"}, {Orvane::UpgradeLaunch, "UpgradeLaunch"},
    {Orvane::Category12, "Category12"},
};

class LinksPage : public GalleryPage
{
public:
    LinksPage()
        : GalleryPage(QStringLiteral("links"), tr("Web links"),
                      tr("Product pages open through the maker's redirect endpoint, built from a page "
                         "category and the product id of the current language pack."))
    {
        // The host calls the launch rule once per start. The gallery lets it
        // run with the catcher in place of the browser and shows the result.
        const QString stored = QSettings().value(QStringLiteral("version")).toString();
        const QString opened = catchOpenedUrl(m_catcher, [] { Orvane::jumpRdxByLaunchApp(); });

        auto pair = addSectionPair(tr("This start"), tr("Product id"));
        auto *launch = new QGridLayout(pair.first);
        addValue(launch, tr("stored \"version\" before"), stored.isEmpty() ? tr("(none: first launch)") : stored);
        addValue(launch, QStringLiteral("getAppVersion()"), Orvane::getAppVersion());
        addValue(launch, QStringLiteral("jumpRdxByLaunchApp()"), opened.isEmpty() ? tr("opened nothing") : opened);
        launch->setColumnStretch(1, 1);

        auto *pid = new QGridLayout(pair.second);
        m_pack = addValue(pid, QStringLiteral("getCurrentLocalePackName()"), QString());
        m_pid = addValue(pid, QStringLiteral("getCurrentPID()"), QString());
        pid->addWidget(note(tr("The gallery hands setRdxPIDMap() one id per pack, 4100 and up; pick "
                               "another pack on the Language page and the ids follow.")),
                       pid->rowCount(), 0, 1, 2);
        pid->setColumnStretch(1, 1);

        auto *tableBox = addSection(tr("Categories"));
        auto *tableLayout = new QVBoxLayout(tableBox);
        m_table = new QTableWidget(int(std::size(categories)), 3);
        m_table->setHorizontalHeaderLabels({tr("Value"), tr("Category"), tr("Redirect URL")});
        m_table->verticalHeader()->hide();
        m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
        m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
        m_table->setSelectionMode(QAbstractItemView::SingleSelection);
        m_table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
        m_table->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
        m_table->horizontalHeader()->setStretchLastSection(true);
        m_table->verticalHeader()->setDefaultSectionSize(24);
        m_table->setStyleSheet(themed(QStringLiteral("QTableWidget{border:none; font-size:12px;}"
                                                     "QTableWidget::item:selected{background:#E6E3FF; color:@ink@;}")));
        m_table->setMinimumHeight(24 * int(std::size(categories)) + 28);
        tableLayout->addWidget(m_table);
        auto *open = new QPushButton(tr("Open the selected page in the browser"));
        tableLayout->addWidget(open, 0, Qt::AlignLeft);
        connect(open, &QPushButton::clicked, this, [this] {
            const int row = m_table->currentRow();
            if (row >= 0)
                Orvane::openRdxUrl(categories[row].value);
        });
        connect(m_table, &QTableWidget::cellDoubleClicked, this,
                [](int row, int) { Orvane::openRdxUrl(categories[row].value); });
        refresh();
    }

protected:
    void showEvent(QShowEvent *event) override
    {
        refresh();
        GalleryPage::showEvent(event);
    }

private:
    QLabel *addValue(QGridLayout *grid, const QString &name, const QString &value)
    {
        const int row = grid->rowCount();
        grid->addWidget(new QLabel(name), row, 0);
        QLabel *label = valueLabel(value);
        label->setWordWrap(true);
        grid->addWidget(label, row, 1);
        return label;
    }

    void refresh()
    {
        m_pack->setText(Orvane::getCurrentLocalePackName());
        m_pid->setText(Orvane::getCurrentPID());
        for (int row = 0; row < int(std::size(categories)); ++row) {
            const Category &c = categories[row];
            const QString url = catchOpenedUrl(m_catcher, [&c] { Orvane::openRdxUrl(c.value); });
            m_table->setItem(row, 0, new QTableWidgetItem(QString::number(c.value)));
            m_table->setItem(row, 1, new QTableWidgetItem(QString::fromLatin1(c.name)));
            m_table->setItem(row, 2, new QTableWidgetItem(url));
        }
    }

    UrlCatcher m_catcher;
    QLabel *m_pack = nullptr;
    QLabel *m_pid = nullptr;
    QTableWidget *m_table = nullptr;
};

} // namespace

GalleryPage *makeLinksPage()
{
    return new LinksPage;
}

#include "linkspage.moc"
