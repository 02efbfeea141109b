#ifndef GALLERY_PAGES_H
#define GALLERY_PAGES_H
// The gallery's pages, one source file each.
#include <QLocale>
#include <QStringList>

class GalleryPage;
class GalleryWindow;

GalleryPage *makeFoundationPage(const QString &logDir);
GalleryPage *makeDialogsPage(GalleryWindow &window);
GalleryPage *makeMessagesPage();
GalleryPage *makeButtonsPage();
GalleryPage *makeLabelsPage();
GalleryPage *makeSlicesPage();
GalleryPage *makeLanguagePage();
GalleryPage *makeLinksPage();
GalleryPage *makeAesPage();

// Closes every message box on screen (after a screenshot).
void closeMessageBoxes();

// Creates every page and adds it to the window, in list order.
void addGalleryPages(GalleryWindow &window, const QString &logDir);

// The sixteen language-pack names, in the order the language page lists them.
QStringList languagePacks();
// A locale whose pack is `pack` (English for a name that is not a pack).
QLocale localeOfPack(const QString &pack);

#endif // GALLERY_PAGES_H
