#include "pages.h"

#include "gallerywindow.h"

void addGalleryPages(GalleryWindow &window, const QString &logDir)
{
    window.addPage(makeFoundationPage(logDir));
    window.addPage(makeDialogsPage(window));
    window.addPage(makeMessagesPage());
    window.addPage(makeButtonsPage());
    window.addPage(makeLabelsPage());
    window.addPage(makeSlicesPage());
    window.addPage(makeLanguagePage());
    window.addPage(makeLinksPage());
    window.addPage(makeAesPage());
}
