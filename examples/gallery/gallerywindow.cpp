#include "gallerywindow.h"
#include "palette.h"

#include "gallerypage.h"

#include <Orvane/Orvane.h>

#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>

namespace {

// The gallery's own look. It is set on the main window only, so the
// library's dialogs (top-level windows without a parent) keep theirs.
const char *const galleryStyle = R"(
QMainWindow#MainWindow, #pageBody, #pageHeader { background: @page@; }
QListWidget#nav {
    background: @darkPanel@; color: @onDark@; border: none; font-size: 14px;
    padding-top: 10px; outline: none;
}
QListWidget#nav::item { padding: 9px 18px; border-left: 3px solid transparent; }
QListWidget#nav::item:hover { background: @darkHover@; }
QListWidget#nav::item:selected { background: @darkHover@; color: white; border-left: 3px solid @accent@; }
QLabel#pageTitle { font-size: 22px; font-weight: bold; color: @ink@; }
QLabel#pageBlurb { font-size: 13px; color: #60636F; }
QLabel#note { font-size: 11px; color: @note@; }
QLabel#value { font-family: "DejaVu Sans Mono"; font-size: 12px; color: @ink@; }
QGroupBox {
    background: white; border: 1px solid @frame@; border-radius: 8px;
    margin-top: 12px; padding: 14px 12px 10px 12px; font-size: 13px;
}
QGroupBox::title {
    subcontrol-origin: margin; left: 12px; top: 0px; padding: 0 4px;
    color: #5B4FD6; font-weight: bold;
}
QToolBar { background: @darkPanel@; border: none; padding: 4px 10px; spacing: 8px; }
QToolBar QLabel { color: @onDark@; }
QStatusBar { background: #E9EBF2; color: #4A4D59; }
)";

} // namespace

GalleryWindow::GalleryWindow(const QString &logDir, QWidget *parent)
    : QMainWindow(parent)
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(tr("Orvane gallery"));
    setWindowIcon(Orvane::SliceManager::appIcon());
    setStyleSheet(themed(QString::fromLatin1(galleryStyle)));

    auto *bar = addToolBar(tr("Skin"));
    bar->setMovable(false);
    auto *brand = new QLabel(themed(QStringLiteral("<b style='color:white;font-size:15px'>Orvane</b>"
                                                   "&nbsp;&nbsp;<span style='color:@muted@'>%1</span>"))
                                 .arg(Orvane::orvaneLibVersion()));
    bar->addWidget(brand);
    auto *spacer = new QWidget;
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(spacer);
    bar->addWidget(new QLabel(tr("Dialog skin")));
    m_skinBox = new QComboBox;
    for (int s : skins())
        m_skinBox->addItem(tr("%1 (%2)").arg(skinName(s)).arg(s), s);
    bar->addWidget(m_skinBox);
    m_skinBox->setCurrentIndex(qMax(0, m_skinBox->findData(Orvane::currentDialogSkin())));
    // The message box takes the process-wide skin; the gallery's other
    // dialogs are given the same number.
    connect(m_skinBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int) {
        Orvane::setCurrentDialogSkin(skin());
        Q_EMIT skinChanged(skin());
    });

    auto *central = new QWidget;
    auto *row = new QHBoxLayout(central);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    m_list = new QListWidget;
    m_list->setObjectName(QStringLiteral("nav"));
    m_list->setFixedWidth(190);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_stack = new QStackedWidget;
    row->addWidget(m_list);
    row->addWidget(m_stack, 1);
    setCentralWidget(central);
    connect(m_list, &QListWidget::currentRowChanged, m_stack, &QStackedWidget::setCurrentIndex);

    statusBar()->addWidget(new QLabel(tr("Log folder: %1").arg(QDir::toNativeSeparators(logDir))));
    resize(1200, 800);
}

void GalleryWindow::addPage(GalleryPage *page)
{
    m_pages.append(page);
    m_stack->addWidget(page);
    m_list->addItem(page->title());
    if (m_list->currentRow() < 0)
        m_list->setCurrentRow(0);
}

void GalleryWindow::showPage(GalleryPage *page)
{
    m_list->setCurrentRow(m_pages.indexOf(page));
}

int GalleryWindow::skin() const
{
    return m_skinBox->currentData().toInt();
}

void GalleryWindow::setSkin(int skin)
{
    const int index = m_skinBox->findData(skin);
    if (index >= 0)
        m_skinBox->setCurrentIndex(index);
}

QList<int> GalleryWindow::skins()
{
    return {2, 0, 3, 4};
}

QString GalleryWindow::skinName(int skin)
{
    switch (skin) {
    case 2:
        return QStringLiteral("dark");
    case 3:
        return QStringLiteral("light-blue");
    case 4:
        return QStringLiteral("light-violet");
    default:
        return QStringLiteral("light");
    }
}
