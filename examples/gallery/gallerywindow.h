#ifndef GALLERY_GALLERYWINDOW_H
#define GALLERY_GALLERYWINDOW_H
// The gallery's main window: a list of pages on the left, the current page
// on the right, the dialog skin in the tool bar and the log folder in the
// status bar. The library's dialogs centre themselves over the first
// QMainWindow they find, this one; its object name is "MainWindow".
#include <QList>
#include <QMainWindow>

class GalleryPage;
class QComboBox;
class QListWidget;
class QStackedWidget;

class GalleryWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit GalleryWindow(const QString &logDir, QWidget *parent = nullptr);

    void addPage(GalleryPage *page);
    QList<GalleryPage *> pages() const { return m_pages; }
    void showPage(GalleryPage *page);

    // The dialog skin the tool bar shows: 2 dark, 0 light, 3 and 4 light
    // with other message-box buttons.
    int skin() const;
    void setSkin(int skin);
    static QList<int> skins();
    // "dark", "light", "light-blue", "light-violet": used in file names.
    static QString skinName(int skin);

Q_SIGNALS:
    void skinChanged(int skin);

private:
    QList<GalleryPage *> m_pages;
    QListWidget *m_list;
    QStackedWidget *m_stack;
    QComboBox *m_skinBox;
};

#endif // GALLERY_GALLERYWINDOW_H
